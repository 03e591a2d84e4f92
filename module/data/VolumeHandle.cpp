#include "module/data/VolumeHandle.h"

#include "host/blocs/HVSeismicBloc.h"
#include "module/data/DataHandle.h"
#include "runtime/Errors.h"

#include <QThread>

#include <cerrno>

namespace bp = boost::python;

namespace python {

namespace {

/// The last reference may go on any thread; what is behind it ends on its own.
void dispose(HVBloc* bloc)
{
    if (QThread::currentThread() == bloc->thread())
        delete bloc;
    else
        bloc->deleteLater();
}

} // namespace

VolumeHandle::VolumeHandle(std::unique_ptr<HVBloc> bloc) : m_bloc(bloc.release(), dispose) {}

HVBloc& VolumeHandle::get() const
{
    if (QThread::currentThread() != m_bloc->thread())
        raise(PyExc_RuntimeError, "SeismicVolume, can only be used on the main thread");
    return *m_bloc;
}

std::shared_ptr<const hv::VolumeFile> VolumeHandle::file() const
{
    auto file = get().file();
    if (!file)
        raise(PyExc_RuntimeError, "SeismicVolume, the volume has no file yet; createFile() makes it");
    return file;
}

std::unique_ptr<HVBloc> loadBloc(const QString& filename, PyObject* error)
{
    auto bloc = HVBloc::load(filename, openProject());
    if (!bloc)
        raiseVolumeFailure(error, bloc.failure());
    return std::move(*bloc);
}

bp::object volumeObject(std::unique_ptr<HVBloc> bloc)
{
    if (qobject_cast<HVSeismicBloc*>(bloc.get()))
        return bp::object(std::make_shared<SeismicVolumeHandle>(std::move(bloc)));
    return bp::object(std::make_shared<VolumeHandle>(std::move(bloc)));
}

void raiseVolumeFailure(PyObject* type, const hv::Failure& failure)
{
    raise(failure.systemError == ENOMEM ? PyExc_MemoryError : type, "SeismicVolume, %s",
          failure.sentence.toUtf8().constData());
}

void raiseVolumeFailure(const hv::Failure& failure)
{
    raiseVolumeFailure(PyExc_IOError, failure);
}

} // namespace python
