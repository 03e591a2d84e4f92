#include "module/Bindings.h"
#include "module/gui/FlagArgument.h"
#include "module/gui/LayoutClasses.h"
#include "module/gui/LayoutParts.h"
#include "module/gui/LayoutRows.h"
#include "module/gui/PartArgument.h"
#include "module/gui/Property.h"
#include "module/gui/Widgets.h"

#include <QGridLayout>

namespace bp = boost::python;

namespace python {

namespace {

/// Qt keeps a record for every row and column up to the last one.
constexpr int g_largestPlace = 9999;

void setHorizontalSpacing(QGridLayout& grid, int pixels)
{
    requirePixels(pixels, -1, "GridLayout.horizontalSpacing");
    grid.setHorizontalSpacing(pixels);
}

void setVerticalSpacing(QGridLayout& grid, int pixels)
{
    requirePixels(pixels, -1, "GridLayout.verticalSpacing");
    grid.setVerticalSpacing(pixels);
}

PyGetSetDef g_properties[] = {
    readOnly<&QGridLayout::columnCount>("columnCount", "int: The number of columns, at least 1. Read-only."),
    readOnly<&QGridLayout::rowCount>("rowCount", "int: The number of rows, at least 1. Read-only."),
    property<&QGridLayout::horizontalSpacing, setHorizontalSpacing>(
        "horizontalSpacing", "int: Pixels between columns; -1 takes the style's own."),
    property<&QGridLayout::verticalSpacing, setVerticalSpacing>("verticalSpacing",
                                                                "int: Pixels between rows; -1 takes the style's own."),
};

int requirePlace(const bp::object& argument, int smallest, const char* method, const char* name)
{
    const std::string where = std::string(method) + ", " + name;
    const int value = Argument<int>::from(argument.ptr(), where.c_str());
    if (value < smallest || value > g_largestPlace)
        raise(PyExc_ValueError, "%s %d out of range (%d -> %d)", where.c_str(), value, smallest, g_largestPlace);
    return value;
}

struct Cell
{
    int row, column, rowSpan, columnSpan;
    Qt::Alignment alignment;
};

Cell requireCell(const char* method, const bp::object& row, const bp::object& column, const bp::object& rowSpan,
                 const bp::object& columnSpan, const bp::object& align, const char* alignFormat)
{
    const Cell cell = {requirePlace(row, 0, method, "row"), requirePlace(column, 0, method, "column"),
                       requirePlace(rowSpan, 1, method, "rowSpan"), requirePlace(columnSpan, 1, method, "columnSpan"),
                       align.is_none() ? Qt::Alignment() : alignmentArgument(align, alignFormat)};
    if (cell.row + cell.rowSpan > g_largestPlace + 1 || cell.column + cell.columnSpan > g_largestPlace + 1)
        raise(PyExc_ValueError, "%s, rows and columns end at %d", method, g_largestPlace);
    return cell;
}

void addWidget(const Handle<QGridLayout>& handle, const bp::object& widget, const bp::object& row,
               const bp::object& column, const bp::object& rowSpan, const bp::object& columnSpan,
               const bp::object& align)
{
    constexpr const char* method = "Layout.addWidget()";
    QGridLayout& grid = handle.get();
    requireWidget(widget, method);
    const Cell cell = requireCell("GridLayout.addWidget()", row, column, rowSpan, columnSpan, align,
                                  "Layout.addWidget(), expected type 'Alignment' for optional argument 'align' but got "
                                  "'%s' instead");
    QWidget& part = requirePart(widget, grid.parentWidget(), method);
    grid.addWidget(&part, cell.row, cell.column, cell.rowSpan, cell.columnSpan, cell.alignment);
    joinWidget(grid, part, widget);
}

void addLayout(const Handle<QGridLayout>& handle, const bp::object& layout, const bp::object& row,
               const bp::object& column, const bp::object& rowSpan, const bp::object& columnSpan,
               const bp::object& align)
{
    QGridLayout& grid = handle.get();
    requireInnerLayout(layout, grid, "Layout.addLayout()");
    const Cell cell =
        requireCell("GridLayout.addLayout()", row, column, rowSpan, columnSpan, align,
                    "Layout.addLayout(), expected type 'int' for optional argument 'align' but got '%s' instead");
    QLayout& part = requireInnerLayout(layout, grid, "Layout.addLayout()"); // numbers may have run code of their own
    grid.addLayout(&part, cell.row, cell.column, cell.rowSpan, cell.columnSpan, cell.alignment);
    joinLayout(grid, part);
}

using SetStretch = void (QGridLayout::*)(int, int);

template <SetStretch setter>
struct StretchSetter
{
    const char* method;
    const char* format;
    const char* place;
    void operator()(const Handle<QGridLayout>& handle, const bp::object& index, const bp::object& stretch) const
    {
        QGridLayout& grid = handle.get();
        const int number = requirePlace(index, 0, method, place);
        (grid.*setter)(number, requireStretch(stretch, format));
    }
};

constexpr StretchSetter<& QGridLayout::setRowStretch> g_setRowStretch = {
    "GridLayout.setRowStretch()", "GridLayout.setRowStretch(), expected type 'int' but got '%s' instead", "row"};
constexpr StretchSetter<& QGridLayout::setColumnStretch> g_setColumnStretch = {
    "GridLayout.setColumnStretch()", "GridLayout.setColumnStretch(), expected type 'int' but got '%s' instead",
    "column"};

template <typename Class, typename Function>
void defineStretchSetter(Class& registered, const char* name, Function function, const char* documentation)
{
    registered.def(name,
                   bp::make_function(function, bp::default_call_policies(),
                                     (bp::arg("self"), bp::arg(function.place), bp::arg("stretch")),
                                     boost::mpl::vector4<void, const Handle<QGridLayout>&, bp::object, bp::object>()),
                   documentation);
}

} // namespace

void bindGridLayout()
{
    auto grid = bindBase<QGridLayout>("GridLayout", "GridLayout(parent: Widget = None, **properties)\n\nWidgets in "
                                                    "rows and columns, which are counted from 0.");
    // What names no cell is left to the functions of every layout.
    grid.def("addWidget", addToEnd,
             (bp::arg("self"), bp::arg("widget"), bp::arg("stretch") = bp::object(), bp::arg("align") = bp::object()))
        .def("addLayout", addLayoutToEnd, (bp::arg("self"), bp::arg("layout"), bp::arg("align") = bp::object()))
        .def("addWidget", addWidget,
             (bp::arg("self"), bp::arg("widget"), bp::arg("row"), bp::arg("column"), bp::arg("rowSpan") = 1,
              bp::arg("columnSpan") = 1, bp::arg("align") = bp::object()),
             "addWidget(widget: Widget, row: int, column: int, rowSpan: int = 1, columnSpan: int = 1, align: Align | "
             "int = None) -> None\naddWidget(widget: Widget, *, align: Align | int = None) -> None\n\nPuts a widget "
             "into a cell, over `rowSpan` rows "
             "and `columnSpan` columns, or into a new row below, over the whole width.\n\nRaises TypeError for wrong "
             "types, ValueError for cells out of range (0 to 9999) and as Layout.addWidget().")
        .def("addLayout", addLayout,
             (bp::arg("self"), bp::arg("layout"), bp::arg("row"), bp::arg("column"), bp::arg("rowSpan") = 1,
              bp::arg("columnSpan") = 1, bp::arg("align") = bp::object()),
             "addLayout(layout: Layout, row: int, column: int, rowSpan: int = 1, columnSpan: int = 1, align: Align | "
             "int = None) -> None\naddLayout(layout: Layout, *, align: Align | int = None) -> None\n\nPuts a layout "
             "into a cell, as "
             "addWidget().");
    defineStretchSetter(grid, "setRowStretch", g_setRowStretch,
                        "setRowStretch(row: int, stretch: int) -> None\n\nRows with a stretch share the room that is "
                        "left in these proportions.\n\nRaises TypeError, ValueError.");
    defineStretchSetter(grid, "setColumnStretch", g_setColumnStretch,
                        "setColumnStretch(column: int, stretch: int) -> None\n\nColumns with a stretch share the room "
                        "that is left in these proportions.\n\nRaises TypeError, ValueError.");
    installProperties<QGridLayout>(g_properties);
    bindLayoutConstructor<QGridLayout>("__init__(parent: Widget = None, **properties) -> None\n\nAn empty grid for "
                                       "`parent`; spacing and margin go by name.");
}

} // namespace python
