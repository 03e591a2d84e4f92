#include "host/services/HVUserData.h"
#include "module/Registrations.h"
#include "module/WindowNames.h"
#include "runtime/TextSetting.h"

namespace bp = boost::python;

namespace {

void registerValues()
{
    hv::nameApplication();
    hv::keepSettingsInUserData();
    python::readTextSetting();
    python::registerModule<python::Extent::Values>();
    python::addWindowNames(bp::scope());
}

} // namespace

/// The module without windows, for the interpreter that child processes are; the launcher finds it by this name.
extern "C" PyObject* strativo_python_values()
{
    static PyModuleDef definition{PyModuleDef_HEAD_INIT, "strativo_python", nullptr, -1, {}, {}, {}, {}, {}};
    return bp::detail::init_module(definition, registerValues);
}
