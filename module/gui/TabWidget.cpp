#include "module/Bindings.h"
#include "module/gui/Connector.h"
#include "module/gui/Construction.h"
#include "module/gui/PartArgument.h"
#include "module/gui/Property.h"
#include "module/gui/Widgets.h"

#include <QTabWidget>

namespace bp = boost::python;

namespace python {

namespace {

using QTabWidgetIndirect = Indirect<QTabWidget>;
using PyTabWidget = Wrapper<QTabWidgetIndirect>;

constexpr ConstructorArguments g_arguments = {{"parent", "parentWidget"}};

int requireChoice(int number, int last, const char* where)
{
    if (number < 0 || number > last)
        raise(PyExc_ValueError, "%s, %d out of range (0 -> %d)", where, number, last);
    return number;
}

int tabPosition(QTabWidget& tabs)
{
    return tabs.tabPosition();
}

void setTabPosition(QTabWidget& tabs, int side)
{
    tabs.setTabPosition(
        static_cast<QTabWidget::TabPosition>(requireChoice(side, QTabWidget::East, "TabWidget.tabPosition")));
}

int tabShape(QTabWidget& tabs)
{
    return tabs.tabShape();
}

void setTabShape(QTabWidget& tabs, int shape)
{
    tabs.setTabShape(
        static_cast<QTabWidget::TabShape>(requireChoice(shape, QTabWidget::Triangular, "TabWidget.tabShape")));
}

void setCurrentIndex(QTabWidget& tabs, const bp::object& value)
{
    tabs.setCurrentIndex(requireIndex(value, tabs.count(), "TabWidget.currentIndex"));
}

bp::object currentWidget(QTabWidget& tabs)
{
    return wrapWidget(tabs.currentWidget());
}

PyGetSetDef g_properties[] = {
    property<tabPosition, setTabPosition>(
        "tabPosition", "int: The side where the tabs are: 0 above, 1 below, 2 on the left, 3 on the right."),
    property<tabShape, setTabShape>("tabShape", "int: The form of the tabs: 0 rounded, 1 triangular."),
    property<&QTabWidget::usesScrollButtons, &QTabWidget::setUsesScrollButtons>(
        "usesScrollButtons", "bool: Whether tabs that find no room are scrolled to rather than squeezed."),
    property<&QTabWidget::currentIndex, setCurrentIndex>("currentIndex",
                                                         "int: The tab that is shown, from 0; -1 without tabs."),
    readOnly<currentWidget>("currentWidget", "Widget | None: The page that is shown. Read-only."),
    readOnly<&QTabWidget::count>("count", "int: The number of tabs. Read-only."),
};

QWidget& requirePage(QTabWidget& tabs, const bp::object& argument)
{
    constexpr const char* method = "TabWidget.addTab()";
    constexpr const char* text = "TabWidget.addTab(), expected 'Widget' for first argument not '%s'";
    QWidget& page = requireWidget(argument, {text, text});
    requireFree(page, &tabs, method);
    return page;
}

int addTab(const Handle<QTabWidget>& handle, const bp::object& widget, const bp::object& label)
{
    QTabWidget& tabs = handle.get();
    QWidget& page = requirePage(tabs, widget);
    const QString text = requireStr(label, "TabWidget.addTab(), expected 'str' for second argument not '%s'");
    return tabs.addTab(&page, text);
}

int addTabWithIcon(const Handle<QTabWidget>& handle, const bp::object& widget, const bp::object& icon,
                   const bp::object& label)
{
    QTabWidget& tabs = handle.get();
    QWidget& page = requirePage(tabs, widget);
    const bp::extract<const IconHandle&> picture(icon);
    if (!picture.check())
        raise(PyExc_TypeError, "TabWidget.addTab(), expected 'Icon' for second argument not '%s'", typeName(icon));
    const QString text = requireStr(label, "TabWidget.addTab(), expected 'str' for third argument not '%s'");
    return tabs.addTab(&page, picture().icon, text);
}

/// The index of a tab that is named by its label (the first one), its page or its number; -1 when there is none.
int findTab(QTabWidget& tabs, const bp::object& tab, const char* typeMessage)
{
    const bp::extract<const WidgetHandle&> page(tab);
    if (page.check())
        return tabs.indexOf(&page().widget());
    if (PyLong_CheckExact(tab.ptr())) {
        const long long index = requirePosition(tab, typeMessage);
        return isValidIndex(index, tabs.count()) ? static_cast<int>(index) : -1;
    }
    const QString label = requireStr(tab, typeMessage);
    for (int index = 0; index < tabs.count(); ++index)
        if (tabs.tabText(index) == label)
            return index;
    return -1;
}

[[noreturn]] void raiseNotFound(const bp::object& tab, const char* message)
{
    const bp::str text(tab);
    raise(PyExc_ValueError, message, PyUnicode_AsUTF8(text.ptr()));
}

void removeTab(const Handle<QTabWidget>& handle, const bp::object& tab)
{
    QTabWidget& tabs = handle.get();
    const int index = findTab(tabs, tab, "TabWidget.removeTab(), expected 'str' but got '%s' instead");
    if (index < 0)
        raiseNotFound(tab, "TabWidget.removeTab(), tab '%s' not found");
    handBack(tabs.widget(index), "TabWidget.removeTab()");
}

void setCurrentTab(const Handle<QTabWidget>& handle, const bp::object& tab)
{
    QTabWidget& tabs = handle.get();
    const int index = findTab(tabs, tab, "TabWidget.setCurrentTab(), expected 'str' but got '%s' instead");
    if (index < 0)
        raiseNotFound(tab, "TabWidget.setCurrentTab(), tab '%s' not found");
    tabs.setCurrentIndex(index);
}

int indexOf(const Handle<QTabWidget>& handle, const bp::object& widget)
{
    QTabWidget& tabs = handle.get();
    return tabs.indexOf(&requireWidget(widget, {"TabWidget.indexOf(), expected 'Widget' not 'NoneType'",
                                                "TabWidget.indexOf(), expected 'Widget' not '%s'"}));
}

void tabChanged(const Handle<QTabWidget>& handle, const bp::object& callable)
{
    connectValue<int>(handle.get(), &QTabWidget::currentChanged, callable, "TabWidget.tabChanged()");
}

} // namespace

void bindTabWidget()
{
    bindBase<QTabWidget>("_QTabWidget", "What pages with tabs have.")
        .def("addTab", addTab, bp::args("self", "widget", "label"))
        .def(
            "addTab", addTabWithIcon, bp::args("self", "widget", "icon", "label"),
            "addTab(widget: Widget, label: str) -> int\naddTab(widget: Widget, icon: Icon, label: str) -> int\n\nPuts "
            "a page behind a tab at the end and returns its index.\n\nRaises TypeError for wrong types, ValueError for "
            "a widget that is already in a layout or container or that the tabs are in.")
        .def("removeTab", removeTab, bp::args("self", "tab"),
             "removeTab(tab: str | int | Widget) -> None\n\nTakes a tab away, given by its label (the first one with "
             "it), its index or its page. The page has no parent afterwards and can be put elsewhere.\n\nRaises "
             "TypeError, and ValueError when there is no such tab.")
        .def("setCurrentTab", setCurrentTab, bp::args("self", "tab"),
             "setCurrentTab(tab: str | int | Widget) -> None\n\nShows a tab, given as for removeTab().\n\nRaises "
             "TypeError, and ValueError when there is no such tab.")
        .def("indexOf", indexOf, bp::args("self", "widget"),
             "indexOf(widget: Widget) -> int\n\nThe index of a page, -1 when it is none.\n\nRaises TypeError.")
        .def("tabChanged", tabChanged, bp::args("self", "callable"),
             "tabChanged(callable: Callable[[int], object]) -> None\n\nCalls `callable` with the index of the tab that "
             "is shown from now on, -1 when the last one was taken away.\n\nRaises TypeError for what can not be "
             "called.");
    installProperties<QTabWidget>(g_properties);
    bindPublic<QTabWidget>("TabWidget", "TabWidget(parent: Widget = None, **properties)\n\nPages with tabs, of which "
                                        "one is shown.");
    bindConstructor<PyTabWidget, g_arguments>(
        "__init__(parent: Widget = None, **properties) -> None\n\nNo tabs at first; see addTab().");
}

} // namespace python
