#pragma once

#include "host/blocs/HVBloc.h"

#include <boost/python.hpp>

#include <memory>

namespace python {

/// A volume in the hands of a script: a handle of its own, by the rule of DataHandle.h; the block keeps the file and
/// the frames that the script has replaced.
///
/// Volumes are used on the main thread. What reads long hands the file (a VolumeFile) to work that runs without the
/// interpreter lock; views of the samples keep the file by themselves and may be read anywhere.
class VolumeHandle
{
public:
    explicit VolumeHandle(std::unique_ptr<HVBloc> bloc);

    /// The block; raises RuntimeError on another thread.
    HVBloc& get() const;
    /// Its file; raises RuntimeError when it has none yet.
    std::shared_ptr<const hv::VolumeFile> file() const;

private:
    std::shared_ptr<HVBloc> m_bloc;
};

/// One whose block is a HVSeismicBloc.
class SeismicVolumeHandle : public VolumeHandle
{
public:
    using VolumeHandle::VolumeHandle;
};

using VolumeClass = boost::python::class_<VolumeHandle, std::shared_ptr<VolumeHandle>, boost::noncopyable>;

/// The block in a file, which hears of the open project.
std::unique_ptr<HVBloc> loadBloc(const QString& filename, PyObject* error);
/// A Python SeismicVolume or, for a block of another class, a Volume.
boost::python::object volumeObject(std::unique_ptr<HVBloc> bloc);

/// IOError "SeismicVolume, <sentence>", MemoryError when that was the reason.
[[noreturn]] void raiseVolumeFailure(const hv::Failure& failure);
/// The same with another type.
[[noreturn]] void raiseVolumeFailure(PyObject* type, const hv::Failure& failure);

/// Parts of the class Volume: what the header says, and the samples as arrays.
void defineHeaderMembers(VolumeClass& volume);
void defineSampleMembers(VolumeClass& volume);
/// numpy.asarray(volume): a read-only view of shape (inline, crossline, sample) of the file's inline order.
void installVolumeBuffer(PyTypeObject* type);
/// Whether an object is a view of a volume's samples, or a view of such a view: what writing into a volume changes.
bool isVolumeView(const boost::python::object& array);

} // namespace python
