#include "module/Bindings.h"
#include "module/gui/Connector.h"
#include "module/gui/Construction.h"
#include "module/gui/PartArgument.h"
#include "module/gui/Property.h"
#include "module/gui/Widgets.h"

#include <QStackedWidget>

namespace bp = boost::python;

namespace python {

namespace {

using QStackedWidgetIndirect = Indirect<QStackedWidget>;
using PyStackedWidget = Wrapper<QStackedWidgetIndirect>;

constexpr ConstructorArguments g_arguments = {{"parent", "parentWidget"}};

void setCurrentIndex(QStackedWidget& stack, const bp::object& value)
{
    const long long index = requirePosition(value, "StackedWidget.currentIndex, expected 'int' but got '%s' instead");
    if (!isValidIndex(index, stack.count()))
        raise(PyExc_IndexError, "StackedWidget.currentIndex, index (%d) out of range (%d -> %d", saturated(index), 0,
              stack.count() - 1);
    stack.setCurrentIndex(static_cast<int>(index));
}

constexpr WidgetTexts g_currentTexts = {
    "StackedWidget.currentWidget, expected type 'Widget' but got 'NoneType' instead",
    "StackedWidget.currentWidget, expected type 'Widget' but got '%s' instead"};
constexpr WidgetTexts g_addTexts = {"StackedWidget.addWidget(), expected type 'Widget' but got 'NoneType' instead",
                                    "StackedWidget.addWidget(), expected type 'Widget' but got '%s' instead"};
constexpr WidgetTexts g_insertTexts = {
    "StackedWidget.insertWidget(), expected type 'Widget' but got 'NoneType' instead",
    "StackedWidget.insertWidget(), expected type 'Widget' but got '%s' instead"};

bp::object currentWidget(QStackedWidget& stack)
{
    return wrapWidget(stack.currentWidget());
}

void setCurrentWidget(QStackedWidget& stack, const bp::object& value)
{
    QWidget& page = requireWidget(value, g_currentTexts);
    if (stack.indexOf(&page) < 0)
        raise(PyExc_ValueError,
              "StackedWidget.currentWidget, supplied 'Widget' is not a child of this 'StackedWidget'");
    stack.setCurrentWidget(&page);
}

PyGetSetDef g_properties[] = {
    property<&QStackedWidget::currentIndex, setCurrentIndex>("currentIndex",
                                                             "int: The page that is shown, from 0; -1 without pages."),
    property<currentWidget, setCurrentWidget>("currentWidget", "Widget | None: The page that is shown."),
    readOnly<&QStackedWidget::count>("count", "int: The number of pages. Read-only."),
};

int addWidget(const Handle<QStackedWidget>& handle, const bp::object& widget)
{
    constexpr const char* method = "StackedWidget.addWidget()";
    QStackedWidget& stack = handle.get();
    if (stack.indexOf(&requireWidget(widget, g_addTexts)) >= 0)
        raise(PyExc_ValueError, "StackedWidget.addWidget(), supplied 'Widget' is already a child the 'StackedWidget'");
    return stack.addWidget(&requirePart(widget, &stack, method));
}

int insertWidget(const Handle<QStackedWidget>& handle, const bp::object& index, const bp::object& widget)
{
    constexpr const char* method = "StackedWidget.insertWidget()";
    QStackedWidget& stack = handle.get();
    const int place = Argument<int>::from(index.ptr(), method);
    if (stack.indexOf(&requireWidget(widget, g_insertTexts)) >= 0)
        raise(PyExc_ValueError,
              "StackedWidget.addWidget(), supplied 'Widget' is already a child of the 'StackedWidget'");
    return stack.insertWidget(place, &requirePart(widget, &stack, method));
}

void removeWidget(const Handle<QStackedWidget>& handle, const bp::object& widget)
{
    QStackedWidget& stack = handle.get();
    QWidget& page = requireWidget(widget, "StackedWidget.removeWidget()");
    if (stack.indexOf(&page) < 0)
        raise(PyExc_ValueError,
              "StackedWidget.removeWidget(), supplied 'Widget' is not a child of this 'StackedWidget'");
    handBack(&page, "StackedWidget.removeWidget()");
}

bp::object widget(const Handle<QStackedWidget>& handle, const bp::object& index)
{
    QStackedWidget& stack = handle.get();
    return wrapWidget(stack.widget(requireIndex(index, stack.count(), "StackedWidget.widget()")));
}

void stackChanged(const Handle<QStackedWidget>& handle, const bp::object& callable)
{
    connectValue<int>(handle.get(), &QStackedWidget::currentChanged, callable, "StackedWidget.stackChanged()");
}

} // namespace

void bindStackedWidget()
{
    bindBase<QStackedWidget>("_QStackedWidget", "What stacks of pages have.")
        .def("addWidget", addWidget, bp::args("self", "widget"),
             "addWidget(widget: Widget) -> int\n\nPuts a page at the end and returns its index.\n\nRaises TypeError, "
             "and ValueError for a widget that is already in a layout or container or that the stack is in.")
        .def("insertWidget", insertWidget, bp::args("self", "index", "widget"),
             "insertWidget(index: int, widget: Widget) -> int\n\nPuts a page before the one at `index`, at the end for "
             "an index that is none, and returns its index.\n\nRaises TypeError, and ValueError as addWidget().")
        .def("removeWidget", removeWidget, bp::args("self", "widget"),
             "removeWidget(widget: Widget) -> None\n\nTakes a page out, which has no parent afterwards and can be put "
             "elsewhere.\n\nRaises TypeError, and ValueError for a widget that is no page.")
        .def("widget", widget, bp::args("self", "index"),
             "widget(index: int) -> Widget\n\nThe page at `index`.\n\nRaises TypeError, IndexError.")
        .def("stackChanged", stackChanged, bp::args("self", "callable"),
             "stackChanged(callable: Callable[[int], object]) -> None\n\nCalls `callable` with the index of the page "
             "that is shown from now on, -1 when the last one was taken out.\n\nRaises TypeError for what can not be "
             "called.");
    installProperties<QStackedWidget>(g_properties);
    bindPublic<QStackedWidget>("StackedWidget",
                               "StackedWidget(parent: Widget = None, **properties)\n\nPages of which one is shown.");
    bindConstructor<PyStackedWidget, g_arguments>(
        "__init__(parent: Widget = None, **properties) -> None\n\nA stack without pages.");
}

} // namespace python
