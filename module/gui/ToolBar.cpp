#include "module/Bindings.h"
#include "module/gui/Property.h"
#include "module/gui/Widgets.h"
#include "plugins/PluginContext.h"

namespace bp = boost::python;

namespace python {

namespace {

PyGetSetDef g_properties[] = {
    property<&QToolBar::isMovable, &QToolBar::setMovable>("movable", "bool: Whether the user can move it."),
    property<&QToolBar::isFloatable, &QToolBar::setFloatable>("floatable",
                                                              "bool: Whether the user can pull it out as a window."),
    readOnly<&QToolBar::isFloating>("floating", "bool: Whether it is a window now. Read-only."),
};

bp::object addToolBarAction(const Handle<QToolBar>& handle, const bp::object& text, const bp::object& callable,
                            const bp::object& icon)
{
    return addAction(handle.get(), "ToolBar.addAction()", text, callable, icon);
}

void addSeparator(const Handle<QToolBar>& handle)
{
    noteContribution(handle.get().addSeparator());
}

} // namespace

void bindToolBar()
{
    bindBase<QToolBar>("_QToolBar", "What tool bars have.")
        .def("addAction", addToolBarAction,
             (bp::arg("self"), bp::arg("text"), bp::arg("callable"), bp::arg("icon") = bp::object()),
             "addAction(text: str, callable: Callable[[], object], icon: Icon = None) -> Action\n\n"
             "A new button at the end that calls `callable` without arguments. An exception that it raises is "
             "printed.\n\n"
             "Raises TypeError for a text that is not a str, an object that can not be called, or a wrong icon.")
        .def("addSeparator", addSeparator, bp::args("self"), "addSeparator() -> None\n\nA line between buttons.");
    installProperties<QToolBar>(g_properties);
    bindPublic<QToolBar>("ToolBar", "A tool bar of the main window, as addMainWindowToolBar() returns it.");
}

} // namespace python
