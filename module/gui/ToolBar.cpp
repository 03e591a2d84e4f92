#include "host/widgets/HVPluginContributions.h"
#include "module/Bindings.h"
#include "module/app/PluginContext.h"
#include "module/gui/Handles.h"

namespace bp = boost::python;

namespace python {

namespace {

template <auto Getter>
bool get(const ToolBarHandle& handle)
{
    return (handle.bar().*Getter)();
}

template <auto Setter>
void set(const ToolBarHandle& handle, bool value)
{
    (handle.bar().*Setter)(value);
}

bp::object addToolBarAction(const ToolBarHandle& handle, const bp::object& text, const bp::object& callable,
                            const bp::object& icon)
{
    return addAction(handle.bar(), "ToolBar.addAction()", text, callable, icon);
}

void addSeparator(const ToolBarHandle& handle)
{
    HVPluginContributions::instance().add(callingPluginFolder(), handle.bar().addSeparator());
}

} // namespace

void bindToolBar()
{
    bp::class_<ToolBarHandle, bp::bases<WidgetHandle>, std::shared_ptr<ToolBarHandle>, boost::noncopyable>(
        "ToolBar", "A tool bar of the main window, as addMainWindowToolBar() returns it.", bp::no_init)
        .add_property("movable", get<&QToolBar::isMovable>, set<&QToolBar::setMovable>,
                      "bool: Whether the user can move it.")
        .add_property("floatable", get<&QToolBar::isFloatable>, set<&QToolBar::setFloatable>,
                      "bool: Whether the user can pull it out as a window.")
        .add_property("floating", get<&QToolBar::isFloating>, "bool: Whether it is a window now. Read-only.")
        .def("addAction", addToolBarAction,
             (bp::arg("self"), bp::arg("text"), bp::arg("callable"), bp::arg("icon") = bp::object()),
             "addAction(text: str, callable: Callable[[], object], icon: Icon = None) -> Action\n\n"
             "A new button at the end that calls `callable` without arguments. An exception that it raises is "
             "printed.\n\n"
             "Raises TypeError for a text that is not a str, an object that can not be called, or a wrong icon.")
        .def("addSeparator", addSeparator, bp::args("self"), "addSeparator() -> None\n\nA line between buttons.");
}

} // namespace python
