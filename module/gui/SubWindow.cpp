#include "module/Bindings.h"
#include "module/gui/Handles.h"

namespace bp = boost::python;

namespace python {

void bindSubWindow()
{
    bp::class_<SubWindowHandle, bp::bases<WidgetHandle>, std::shared_ptr<SubWindowHandle>, boost::noncopyable>(
        "SubWindow", "A window in the main window's document area, as addSubWindow() returns it.", bp::no_init);
}

} // namespace python
