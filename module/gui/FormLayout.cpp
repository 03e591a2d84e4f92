#include "module/Bindings.h"
#include "module/gui/LayoutClasses.h"
#include "module/gui/LayoutRows.h"
#include "module/gui/Property.h"

#include <QFormLayout>

namespace python {

namespace {

PyGetSetDef g_properties[] = {
    property<&QFormLayout::labelAlignment, &QFormLayout::setLabelAlignment>(
        "labelAlignment", "Align: Where the labels stand in their column; several are combined with |."),
    property<&QFormLayout::formAlignment, &QFormLayout::setFormAlignment>(
        "formAlignment", "Align: Where the whole form stands in room that it does not need."),
};

} // namespace

void bindFormLayout()
{
    bindBase<QFormLayout>("FormLayout", "FormLayout(parent: Widget = None, **properties)\n\nRows of a label and what "
                                        "it names; see addRow().");
    installProperties<QFormLayout>(g_properties);
    bindLayoutConstructor<QFormLayout>("__init__(parent: Widget = None, **properties) -> None\n\nAn empty form for "
                                       "`parent`; spacing and margin go by name.");
}

} // namespace python
