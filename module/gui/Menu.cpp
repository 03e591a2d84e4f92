#include "host/widgets/HVPluginContributions.h"
#include "module/Bindings.h"
#include "module/app/PluginContext.h"
#include "module/gui/Handles.h"
#include "runtime/Errors.h"

namespace bp = boost::python;

namespace python {

namespace {

bp::object title(const MenuHandle& handle)
{
    return unicodeText(handle.menu().title());
}

void setTitle(const MenuHandle& handle, const QString& text)
{
    handle.menu().setTitle(text);
}

bp::object addMenuAction(const MenuHandle& handle, const bp::object& text, const bp::object& callable,
                         const bp::object& icon)
{
    return addAction(handle.menu(), "Menu.addAction()", text, callable, icon);
}

void addSeparator(const MenuHandle& handle)
{
    HVPluginContributions::instance().add(callingPluginFolder(), handle.menu().addSeparator());
}

bp::object addMenu(const MenuHandle& handle, const bp::object& text)
{
    QMenu* menu = handle.menu().addMenu(requireStr(text, "Menu.addMenu(), expected 'str' but got '%s' instead"));
    // Its entry is a command of the menu above and goes with the plug-in even when that menu stays.
    HVPluginContributions::instance().add(callingPluginFolder(), menu->menuAction());
    return wrapObject<MenuHandle>(menu);
}

} // namespace

void bindMenu()
{
    bp::class_<MenuHandle, bp::bases<WidgetHandle>, std::shared_ptr<MenuHandle>, boost::noncopyable>(
        "Menu", "A menu, as addMainWindowMenu() and getMainWindowMenu() return it.", bp::no_init)
        .add_property("title", title, setTitle, "str: What the menu is called.")
        .def("addAction", addMenuAction,
             (bp::arg("self"), bp::arg("text"), bp::arg("callable"), bp::arg("icon") = bp::object()),
             "addAction(text: str, callable: Callable[[], object], icon: Icon = None) -> Action\n\n"
             "A new command at the end that calls `callable` without arguments. An exception that it raises is "
             "printed.\n\n"
             "Raises TypeError for a text that is not a str, an object that can not be called, or a wrong icon.")
        .def("addSeparator", addSeparator, bp::args("self"), "addSeparator() -> None\n\nA line between commands.")
        .def("addMenu", addMenu, bp::args("self", "title"),
             "addMenu(title: str) -> Menu\n\nA new menu inside this one.\n\nRaises TypeError when title is not a str.");
}

} // namespace python
