#include "runtime/SpawnByDefault.h"

#include "runtime/Errors.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

namespace {

// Set from within the import: the function for it, set_start_method(), would take the choice from scripts.
constexpr const char* g_finder = R"(
import sys
from _frozen_importlib_external import PathFinder

class SpawnByDefault:
    """Finds multiprocessing.context as usual and changes its default once it is executed."""

    def find_spec(self, name, path=None, target=None):
        if name != "multiprocessing.context":
            return None
        spec = PathFinder.find_spec(name, path, target)
        if spec is not None:
            self.loader, spec.loader = spec.loader, self
        return spec

    def create_module(self, spec):
        return None

    def exec_module(self, module):
        module.__loader__ = module.__spec__.loader = self.loader
        self.loader.exec_module(module)
        module._default_context._default_context = module._concrete_contexts["spawn"]
        sys.meta_path.remove(self)

sys.meta_path.insert(0, SpawnByDefault())
)";

} // namespace

void installSpawnByDefault()
{
    bp::dict names;
    names["__builtins__"] = bp::import("builtins");
    names["__name__"] = "strativo_spawn";
    owned(PyRun_String(g_finder, Py_file_input, names.ptr(), names.ptr()));
}

} // namespace python
