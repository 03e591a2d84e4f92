#include "module/Bindings.h"
#include "module/gui/FlagArgument.h"
#include "module/gui/LayoutClasses.h"
#include "module/gui/LayoutParts.h"
#include "module/gui/LayoutRows.h"
#include "module/gui/PartArgument.h"
#include "module/gui/Property.h"
#include "module/gui/Widgets.h"

#include <QMenuBar>

namespace bp = boost::python;

namespace python {

namespace {

int margin(QLayout& layout)
{
    const QMargins all = layout.contentsMargins();
    const int left = all.left();
    return left == all.top() && left == all.right() && left == all.bottom() ? left : -1;
}

void setMargin(QLayout& layout, int pixels)
{
    requirePixels(pixels, 0, "Layout.margin");
    layout.setContentsMargins(pixels, pixels, pixels, pixels);
}

void setSpacing(QLayout& layout, int pixels)
{
    requirePixels(pixels, -1, "Layout.spacing");
    layout.setSpacing(pixels);
}

bp::object parentWidget(QLayout& layout)
{
    return wrapWidget(layout.parentWidget());
}

void setParentWidget(QLayout& layout, const bp::object& value)
{
    constexpr const char* where = "Layout.parentWidget";
    QWidget* wanted = value.is_none() ? nullptr : &requireWidget(value, where);
    if (wanted == layout.parentWidget())
        return;
    if (!wanted)
        raise(PyExc_RuntimeError, "%s, a layout stays in its widget", where);
    setWidgetLayout(*wanted, layoutObject(&layout), where);
}

bp::object menuBar(QLayout& layout)
{
    return wrapWidget(layout.menuBar());
}

void setMenuBar(QLayout& layout, const bp::object& value)
{
    constexpr const char* where = "Layout.menuBar";
    const bp::extract<const Handle<QMenuBar>&> handle(value);
    if (!value.is_none() && !handle.check())
        raiseWrongType(where, "MenuBar", value.ptr());
    QWidget* bar = value.is_none() ? nullptr : &handle().get();
    if (bar == layout.menuBar())
        return;
    if (bar)
        requireFree(*bar, layout.parentWidget(), where); // whose handlers may have changed the layout
    if (QWidget* old = layout.menuBar())
        leaveLayout(layout, *old, where);
    if (bar) {
        layout.setMenuBar(bar);
        // Only the outermost layout of a widget notices when its bar goes.
        QObject::connect(bar, &QObject::destroyed, &layout, [&layout, bar] {
            if (layout.menuBar() == bar)
                layout.setMenuBar(nullptr);
        });
        joinWidget(layout, *bar, value);
    }
}

PyGetSetDef g_properties[] = {
    property<&QLayout::spacing, setSpacing>(
        "spacing", "int: Pixels between the parts; -1 takes the style's own, or says that it differs by direction."),
    property<margin, setMargin>("margin", "int: Pixels around all parts; -1 when the sides differ."),
    property<menuBar, setMenuBar>("menuBar", "MenuBar | None: The row of menus above everything else."),
    property<parentWidget, setParentWidget>("parentWidget", "Widget | None: The widget that is arranged."),
    readOnly<&QLayout::count>("count", "int: The number of parts: widgets, layouts and stretches. Read-only."),
};

int stretchArgument(const bp::object& stretch)
{
    constexpr const char* format =
        "Layout.addWidget(), expected type 'int' for optional argument 'stretch' but got '%s' instead";
    return stretch.is_none() ? 0 : requireStretch(stretch, format);
}

Qt::Alignment alignArgument(const bp::object& align, const char* format)
{
    return align.is_none() ? Qt::Alignment() : alignmentArgument(align, format);
}

void addRow(const LayoutHandle& handle, const bp::object& label, const bp::object& field)
{
    addLabelledRow(handle.layout(), "Layout.addRow()", label, field);
}

void addPlainRow(const LayoutHandle& handle, const bp::object& part)
{
    addUnlabelledRow(handle.layout(), "Layout.addRow()", part);
}

void removeWidget(const LayoutHandle& handle, const bp::object& widget)
{
    constexpr const char* method = "Layout.removeWidget()";
    QLayout& layout = handle.layout();
    QWidget& part = requireWidget(widget, method);
    if (layout.indexOf(&part) < 0)
        raise(PyExc_ValueError, "%s, supplied 'Widget' is not in this layout", method);
    leaveLayout(layout, part, method);
}

} // namespace

void addToEnd(const LayoutHandle& handle, const bp::object& widget, const bp::object& stretch, const bp::object& align)
{
    constexpr const char* method = "Layout.addWidget()";
    QLayout& layout = handle.layout();
    requireWidget(widget, {"Layout.addWidget(), expected type 'Widget' but got 'NoneType' instead",
                           "Layout.addWidget(), expected type 'Widget' but got '%s' instead"});
    const int factor = stretchArgument(stretch);
    const Qt::Alignment alignment =
        alignArgument(align, "Layout.addWidget(), expected type 'Alignment' for optional argument 'align' but got '%s' "
                             "instead");
    auto* box = qobject_cast<QBoxLayout*>(&layout);
    if (factor && !box)
        raise(PyExc_ValueError, "%s, only the parts of a BoxLayout have a stretch", method);
    QWidget& part = requirePart(widget, layout.parentWidget(), method);
    if (box)
        box->addWidget(&part, factor, alignment);
    else
        addRowPart(layout, LayoutPart(part), alignment);
    joinWidget(layout, part, widget);
}

void addLayoutToEnd(const LayoutHandle& handle, const bp::object& inner, const bp::object& align)
{
    QLayout& layout = handle.layout();
    QLayout& part = requireInnerLayout(inner, layout, "Layout.addLayout()");
    const Qt::Alignment alignment = alignArgument(
        align, "Layout.addLayout(), expected type 'int' for optional argument 'align' but got '%s' instead");
    if (auto* box = qobject_cast<QBoxLayout*>(&layout)) {
        box->addLayout(&part);
        box->setAlignment(&part, alignment);
    } else {
        addRowPart(layout, LayoutPart(part), alignment);
    }
    joinLayout(layout, part);
}

void bindLayout()
{
    bp::class_<LayoutHandle, bp::bases<ObjectHandle>, boost::noncopyable>(
        "Layout", "What arranges the widgets in another widget. Give it to Widget.setLayout().", bp::no_init)
        .def("addWidget", addToEnd,
             (bp::arg("self"), bp::arg("widget"), bp::arg("stretch") = bp::object(), bp::arg("align") = bp::object()),
             "addWidget(widget: Widget, stretch: int = 0, align: Align | int = None) -> None\n\nPuts a widget at the "
             "end. Those with a stretch share the room that is left in these proportions; `align` is where the widget "
             "stands when it gets more room than it wants, which it otherwise fills.\n\nRaises TypeError for wrong "
             "types, ValueError for a stretch outside box layouts or out of range and for a widget that is already in "
             "a layout or container or that this layout is in.")
        .def("addLayout", addLayoutToEnd, (bp::arg("self"), bp::arg("layout"), bp::arg("align") = bp::object()),
             "addLayout(layout: Layout, align: Align | int = None) -> None\n\nPuts a layout at the end.\n\nRaises "
             "TypeError for wrong types, ValueError for a layout that is already in use or would be inside itself.")
        .def("addRow", addPlainRow, bp::args("self", "field"))
        .def("addRow", addRow, bp::args("self", "label", "field"),
             "addRow(label: str | Widget, field: Widget | Layout) -> None\naddRow(field: Widget | Layout) -> "
             "None\n\nPuts a row at the end: a label and what it names, or one part over the whole width. For form and "
             "grid layouts.\n\nRaises TypeError for wrong types, RuntimeError for other layouts, ValueError as "
             "addWidget().")
        .def(
            "removeWidget", removeWidget, bp::args("self", "widget"),
            "removeWidget(widget: Widget) -> None\n\nTakes a widget out, which has no parent afterwards and can be put "
            "elsewhere.\n\nRaises TypeError, and ValueError for a widget that is not directly in this layout.");
    installProperties<QLayout>(g_properties);
}

} // namespace python
