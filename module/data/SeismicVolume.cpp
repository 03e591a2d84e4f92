#include "host/blocs/HVSeismicBloc.h"
#include "module/Bindings.h"
#include "module/data/DataHandle.h"
#include "module/data/VolumeHandle.h"
#include "runtime/Errors.h"

namespace bp = boost::python;

namespace python {

namespace {

using Pointer = std::shared_ptr<SeismicVolumeHandle>;

Pointer make()
{
    return std::make_shared<SeismicVolumeHandle>(std::make_unique<HVSeismicBloc>(openProject()));
}

Pointer openNamed(const bp::object& nameObject)
{
    const QString name = requireStr(nameObject, "SeismicVolume, expected 'str' but got '%s' instead");
    const QByteArray shown = name.toUtf8();
    HVProject* project = openProject();
    if (!project || !project->store().contains({ObjectKind::Volume, name}))
        raise(PyExc_RuntimeError, "SeismicVolume, no block found with name '%s'", shown.constData());
    auto bloc = loadBloc(project->filename(ObjectKind::Volume, name), PyExc_RuntimeError);
    if (!bloc->inherits("HVSeismicBloc"))
        raise(PyExc_RuntimeError, "SeismicVolume, block '%s' has wrong type", shown.constData());
    return std::make_shared<SeismicVolumeHandle>(std::move(bloc));
}

} // namespace

void bindSeismicVolume()
{
    bp::class_<SeismicVolumeHandle, bp::bases<VolumeHandle>, Pointer, boost::noncopyable>(
        "SeismicVolume", "A volume of seismic amplitudes, or of what was computed from them.", bp::no_init)
        .def("__init__", bp::make_constructor(make),
             "__init__() -> None\n\n"
             "A volume without a file, of one cell: give it a blockSpace, then createFile(). Reference system, units "
             "and domain are those of the project.")
        .def("__init__", bp::make_constructor(openNamed, bp::default_call_policies(), bp::args("name")),
             "__init__(name: str) -> None\n\n"
             "Opens the volume of the current project that has this name.\n\n"
             "Raises RuntimeError when there is none, when its samples are a property of the rock, and when its file "
             "can not be read.");
}

} // namespace python
