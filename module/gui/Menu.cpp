#include "module/Bindings.h"
#include "module/Conversion.h"
#include "module/gui/Construction.h"
#include "module/gui/Property.h"
#include "module/gui/Widgets.h"
#include "plugins/PluginContext.h"
#include "runtime/Errors.h"

#include <QMenuBar>

namespace bp = boost::python;

namespace python {

namespace {

using QMenuIndirect = Indirect<QMenu>;
using PyMenu = Wrapper<QMenuIndirect>;
using QMenuBarIndirect = Indirect<QMenuBar>;
using PyMenuBar = Wrapper<QMenuBarIndirect>;

constexpr ConstructorArguments g_menuArguments = {{"title", "title"}, {"parent", "parentWidget"}};
constexpr ConstructorArguments g_menuBarArguments = {{"parent", "parentWidget"}};

PyGetSetDef g_menuProperties[] = {
    property<&QMenu::title, &QMenu::setTitle>("title", "str: What the menu is called."),
    property<&QMenu::icon, &QMenu::setIcon>("icon", "Icon: The picture beside the title."),
};
PyGetSetDef g_menuBarProperties[] = {
    property<&QMenuBar::isDefaultUp, &QMenuBar::setDefaultUp>(
        "defaultUp", "bool: Whether menus open upwards, for a bar at the lower edge."),
};

bp::object addMenuAction(const Handle<QMenu>& handle, const bp::object& text, const bp::object& callable,
                         const bp::object& icon)
{
    return addAction(handle.get(), "Menu.addAction()", text, callable, icon);
}

void addSeparator(const Handle<QMenu>& handle)
{
    noteContribution(handle.get().addSeparator());
}

/// A menu in `place`, which is given one or the title of a new one.
template <typename Place>
bp::object addMenu(Place& place, const bp::object& given, const char* method)
{
    const bp::extract<const Handle<QMenu>&> handle(given);
    QMenu* menu = handle.check() ? &handle().get() : nullptr;
    if (menu) {
        if (static_cast<QWidget*>(menu) == &place || menu->isAncestorOf(&place))
            raise(PyExc_ValueError, "%s, a menu can not be inside itself", method);
        holdMenu(place, given);
        place.addMenu(menu);
    } else {
        menu = place.addMenu(Argument<QString>::from(given.ptr(), method));
    }
    // Its entry is a command of the menu above and goes with the plug-in even when that menu stays.
    noteContribution(menu->menuAction());
    return wrapWidget(menu);
}

bp::object addMenuToMenu(const Handle<QMenu>& handle, const bp::object& title)
{
    return addMenu(handle.get(), title, "Menu.addMenu()");
}

bp::object addMenuToBar(const Handle<QMenuBar>& handle, const bp::object& title)
{
    return addMenu(handle.get(), title, "MenuBar.addMenu()");
}

constexpr const char* g_addMenu = "addMenu(title: str | Menu) -> Menu\n\nA new menu with this title at the end, or the "
                                  "given one.\n\nRaises TypeError, "
                                  "and ValueError for a menu that would be inside itself.";

} // namespace

void bindMenu()
{
    bindBase<QMenu>("_QMenu", "What menus have.")
        .def("addAction", addMenuAction,
             (bp::arg("self"), bp::arg("text"), bp::arg("callable"), bp::arg("icon") = bp::object()),
             "addAction(text: str, callable: Callable[[], object], icon: Icon = None) -> Action\n\n"
             "A new command at the end that calls `callable` without arguments. An exception that it raises is "
             "printed.\n\n"
             "Raises TypeError for a text that is not a str, an object that can not be called, or a wrong icon.")
        .def("addSeparator", addSeparator, bp::args("self"), "addSeparator() -> None\n\nA line between commands.")
        .def("addMenu", addMenuToMenu, bp::args("self", "title"), g_addMenu);
    installProperties<QMenu>(g_menuProperties);
    bindPublic<QMenu>("Menu", "Menu(title: str = '', parent: Widget = None, **properties)\n\nA menu.");
    bindConstructor<PyMenu, g_menuArguments>(
        "__init__(title: str = '', parent: Widget = None, **properties) -> None\n\nAn empty menu.");
}

void bindMenuBar()
{
    bindBase<QMenuBar>("_QMenuBar", "What menu bars have.")
        .def("addMenu", addMenuToBar, bp::args("self", "title"), g_addMenu);
    installProperties<QMenuBar>(g_menuBarProperties);
    bindPublic<QMenuBar>("MenuBar",
                         "MenuBar(parent: Widget = None, **properties)\n\nA row of menus at the top of a window.");
    bindConstructor<PyMenuBar, g_menuBarArguments>(
        "__init__(parent: Widget = None, **properties) -> None\n\nAn empty menu bar.");
}

} // namespace python
