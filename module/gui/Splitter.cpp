#include "module/Bindings.h"
#include "module/gui/Construction.h"
#include "module/gui/LayoutRows.h"
#include "module/gui/PartArgument.h"
#include "module/gui/Property.h"
#include "module/gui/Widgets.h"

#include <QSplitter>

namespace bp = boost::python;

namespace python {

namespace {

using QSplitterIndirect = Indirect<QSplitter>;
using PySplitter = Wrapper<QSplitterIndirect>;

constexpr ConstructorArguments g_arguments = {{"orientation", "orientation"}, {"parent", "parentWidget"}};

void setHandleWidth(QSplitter& splitter, int pixels)
{
    requirePixels(pixels, 0, "Splitter.handleWidth");
    splitter.setHandleWidth(pixels);
}

bp::object sizes(QSplitter& splitter)
{
    bp::list all;
    for (const int size : splitter.sizes())
        all.append(size);
    return all;
}

void setSizes(QSplitter& splitter, const bp::object& value)
{
    constexpr const char* where = "Splitter.sizes";
    if (!PyList_Check(value.ptr()) && !PyTuple_Check(value.ptr()))
        raiseWrongType(where, "list", value.ptr());
    if (bp::len(value) != splitter.count())
        raise(PyExc_ValueError, "%s, expected %d sizes but got %d", where, splitter.count(),
              static_cast<int>(bp::len(value)));
    QList<int> all;
    for (int index = 0; index < splitter.count(); ++index) {
        all.append(Argument<int>::from(bp::object(value[index]).ptr(), where));
        requirePixels(all.last(), 0, where);
    }
    splitter.setSizes(all);
}

PyGetSetDef g_properties[] = {
    property<&QSplitter::orientation, &QSplitter::setOrientation>(
        "orientation", "Orientation: Horizontal puts the parts side by side, Vertical one below the other."),
    property<&QSplitter::childrenCollapsible, &QSplitter::setChildrenCollapsible>(
        "childrenCollapsible", "bool: Whether the user can shrink a part to nothing."),
    property<&QSplitter::handleWidth, setHandleWidth>("handleWidth", "int: Pixels between two parts."),
    property<sizes, setSizes>("sizes", "list[int]: The parts' widths, or heights, in pixels. What is set is taken as "
                                       "proportions of the room that there is."),
    readOnly<&QSplitter::count>("count", "int: The number of parts. Read-only."),
};

void addWidget(const Handle<QSplitter>& handle, const bp::object& widget)
{
    QSplitter& splitter = handle.get();
    splitter.addWidget(&requirePart(widget, &splitter, "Splitter.addWidget()"));
}

void insertWidget(const Handle<QSplitter>& handle, const bp::object& index, const bp::object& widget)
{
    constexpr const char* method = "Splitter.insertWidget()";
    QSplitter& splitter = handle.get();
    const int place = Argument<int>::from(index.ptr(), method);
    splitter.insertWidget(place, &requirePart(widget, &splitter, method));
}

bp::object widget(const Handle<QSplitter>& handle, const bp::object& index)
{
    QSplitter& splitter = handle.get();
    return wrapWidget(splitter.widget(requireIndex(index, splitter.count(), "Splitter.widget()")));
}

} // namespace

void bindSplitter()
{
    bindBase<QSplitter>("_QSplitter", "What rows of parts with movable borders have.")
        .def("addWidget", addWidget, bp::args("self", "widget"),
             "addWidget(widget: Widget) -> None\n\nPuts a part at the end; `parentWidget = None` takes it "
             "out.\n\nRaises "
             "TypeError, and ValueError for a widget that is already in a layout or container or that the splitter is "
             "in.")
        .def(
            "insertWidget", insertWidget, bp::args("self", "index", "widget"),
            "insertWidget(index: int, widget: Widget) -> None\n\nPuts a part before the one at `index`, at the end for "
            "an index that is none.\n\nRaises TypeError, and ValueError as addWidget().")
        .def("widget", widget, bp::args("self", "index"),
             "widget(index: int) -> Widget\n\nThe part at `index`.\n\nRaises TypeError, IndexError.");
    installProperties<QSplitter>(g_properties);
    bindPublic<QSplitter>("Splitter", "Splitter(orientation: Orientation = Orientation.Horizontal, parent: Widget = "
                                      "None, **properties)\n\nWidgets with borders between them that the user moves.");
    bindConstructor<PySplitter, g_arguments>(
        "__init__(orientation: Orientation = Orientation.Horizontal, parent: Widget = None, **properties) -> "
        "None\n\nNo parts at first; see addWidget().");
}

} // namespace python
