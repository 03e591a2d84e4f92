#include "module/WindowNames.h"

#include "runtime/Errors.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

namespace {

// The type stubs, which lie beside the packages, list all names of the module; they are read when one is missed.
constexpr const char* g_lookUp = R"py(
class NeedsApplication(type):
    """The class of the names that stand for windows and for what only the application can do."""

    def __getattr__(cls, name):
        if name.startswith("__"):
            raise AttributeError(f"'{cls.__name__}' has no attribute '{name}'")
        return standIn(f"{cls.__qualname__}.{name}")

def refuse(cls, *arguments, **keywords):
    raise RuntimeError(f"{cls.__qualname__} needs the application, which child processes of scripts do without")

def standIn(name):
    return NeedsApplication(name.rpartition(".")[2], (), {
        "__new__": refuse, "__module__": module["__name__"], "__qualname__": name,
        "__doc__": "Needs the application."})

known = []

def names():
    if not known:
        from importlib.machinery import PathFinder
        import re
        stubs = PathFinder.find_spec(module["__name__"] + "-stubs")
        for folder in stubs.submodule_search_locations if stubs else ():
            with open(folder + "/__init__.pyi", encoding="utf-8") as file:
                known.extend(re.findall(r"^(?:class|def) (\w+)", file.read(), re.MULTILINE))
    return known

def lookUp(name):
    if name == "__all__":
        return [each for each in dict.fromkeys([*module, *names()]) if not each.startswith("_")]
    if name.startswith("__") or name not in names():
        raise AttributeError(f"module '{module['__name__']}' has no attribute '{name}'")
    return module.setdefault(name, standIn(name))
)py";

} // namespace

void addWindowNames(bp::object module)
{
    bp::dict names;
    names["__builtins__"] = bp::import("builtins");
    names["__name__"] = "strativo_window_names";
    names["module"] = module.attr("__dict__");
    owned(PyRun_String(g_lookUp, Py_file_input, names.ptr(), names.ptr()));
    module.attr("__getattr__") = names["lookUp"];
}

} // namespace python
