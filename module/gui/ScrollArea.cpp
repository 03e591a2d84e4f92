#include "module/Bindings.h"
#include "module/gui/Construction.h"
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

} // namespace

void bindAbstractScrollArea()
{
    bindBase<QAbstractScrollArea>("_QAbstractScrollArea", "What everything that scrolls has.");
    installProperties<QAbstractScrollArea>(g_abstractProperties);
}

} // namespace python
