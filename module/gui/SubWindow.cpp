#include "module/Bindings.h"
#include "module/gui/Widgets.h"

namespace python {

void bindSubWindow()
{
    bindBase<QMdiSubWindow>("_QMdiSubWindow", "What windows in the document area have.");
    bindPublic<QMdiSubWindow>("SubWindow",
                              "A window in the main window's document area, as addSubWindow() returns it.");
}

} // namespace python
