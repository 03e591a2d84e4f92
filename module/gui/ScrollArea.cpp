#include "module/Bindings.h"
#include "module/gui/Construction.h"
#include "module/gui/PartArgument.h"
#include "module/gui/Property.h"
#include "module/gui/Widgets.h"

#include <QScrollArea>

namespace bp = boost::python;

namespace python {

namespace {

using QScrollAreaIndirect = Indirect<QScrollArea>;
using PyScrollArea = Wrapper<QScrollAreaIndirect>;

PyGetSetDef g_abstractProperties[] = {
    property<&QAbstractScrollArea::horizontalScrollBarPolicy, &QAbstractScrollArea::setHorizontalScrollBarPolicy>(
        "horizontalScrollBarPolicy", "ScrollBarPolicy: When the lower scroll bar is shown."),
    property<&QAbstractScrollArea::verticalScrollBarPolicy, &QAbstractScrollArea::setVerticalScrollBarPolicy>(
        "verticalScrollBarPolicy", "ScrollBarPolicy: When the scroll bar at the side is shown."),
    property<&QAbstractScrollArea::sizeAdjustPolicy, &QAbstractScrollArea::setSizeAdjustPolicy>(
        "sizeAdjustPolicy", "ScrollSizeAdjust: Whether the size follows what is shown."),
};

constexpr ConstructorArguments g_arguments = {{"widget", "widget"}, {"parent", "parentWidget"}};

bp::object widget(QScrollArea& area)
{
    return wrapWidget(area.widget());
}

void setWidget(QScrollArea& area, const bp::object& value)
{
    QWidget* part = value.is_none() ? nullptr : &requireWidget(value, "ScrollArea.widget");
    if (part == area.widget())
        return;
    if (part)
        requireFree(*part, &area, "ScrollArea.widget");
    // Qt would destroy it.
    handBack(area.widget(), "ScrollArea.widget");
    if (part)
        area.setWidget(part);
}

PyGetSetDef g_properties[] = {
    property<&QScrollArea::alignment, &QScrollArea::setAlignment>(
        "alignment", "Align: Where the widget stands when it is smaller than the area."),
    property<&QScrollArea::widgetResizable, &QScrollArea::setWidgetResizable>(
        "widgetResizable", "bool: Whether the widget grows with the area."),
    property<widget, setWidget>(
        "widget", "Widget | None: What is scrolled. The one before has no parent afterwards and can be used again."),
};

} // namespace

void bindAbstractScrollArea()
{
    bindBase<QAbstractScrollArea>("_QAbstractScrollArea", "What everything that scrolls has.");
    installProperties<QAbstractScrollArea>(g_abstractProperties);
}

void bindScrollArea()
{
    bindBase<QScrollArea>("_QScrollArea", "What areas that scroll one widget have.");
    installProperties<QScrollArea>(g_properties);
    bindPublic<QScrollArea>("ScrollArea", "ScrollArea(widget: Widget = None, parent: Widget = None, "
                                          "**properties)\n\nA window onto a widget that may be larger.");
    bindConstructor<PyScrollArea, g_arguments>(
        "__init__(widget: Widget = None, parent: Widget = None, **properties) -> None\n\nScroll bars appear when "
        "they are needed; set widgetResizable for a widget with a layout.");
}

} // namespace python
