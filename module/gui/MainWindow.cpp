#include "module/Bindings.h"
#include "module/gui/Handles.h"
#include "runtime/Errors.h"

namespace bp = boost::python;

namespace python {

namespace {

/// The main window is the application's: a script that closed or hid it would take the user's work away.
void refuse(const MainWindowHandle& /*handle*/)
{
    raise(PyExc_RuntimeError, "MainWindow, illegal method call");
}

} // namespace

void bindMainWindow()
{
    bp::class_<MainWindowHandle, bp::bases<WidgetHandle>, std::shared_ptr<MainWindowHandle>, boost::noncopyable> window(
        "MainWindow", "The application's main window. Calls that would take it from the user raise RuntimeError.",
        bp::no_init);
    for (const char* name : {"show", "hide", "close"})
        window.def(name, refuse, bp::args("self"),
                   (std::string(name) + "() -> None\n\nAlways raises RuntimeError.").c_str());
}

} // namespace python
