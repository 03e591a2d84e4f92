#include "module/Bindings.h"
#include "module/gui/LayoutClasses.h"
#include "module/gui/LayoutParts.h"
#include "module/gui/LayoutRows.h"
#include "module/gui/PartArgument.h"
#include "module/gui/Property.h"

#include <QBoxLayout>

namespace bp = boost::python;

namespace python {

namespace {

constexpr const char* g_noneAsStretch = "BoxLayout.addStretch(), expected type 'int' but got 'NoneType' instead";
constexpr const char* g_wrongStretch = "BoxLayout.addStretch(), expected type 'int' but got '%s' instead";

void addStretch(const Handle<QBoxLayout>& handle, const bp::object& stretch)
{
    QBoxLayout& box = handle.get();
    if (stretch.is_none())
        raise(PyExc_TypeError, g_noneAsStretch);
    box.addStretch(requireStretch(stretch, g_wrongStretch));
}

void addSpacing(const Handle<QBoxLayout>& handle, const bp::object& pixels)
{
    QBoxLayout& box = handle.get();
    const int size = Argument<int>::from(pixels.ptr(), "BoxLayout.addSpacing()");
    requirePixels(size, 0, "BoxLayout.addSpacing()");
    box.addSpacing(size);
}

int stretch(const Handle<QBoxLayout>& handle, const bp::object& index)
{
    QBoxLayout& box = handle.get();
    return box.stretch(requireIndex(index, box.count(), "BoxLayout.stretch()"));
}

void setStretch(const Handle<QBoxLayout>& handle, const bp::object& index, const bp::object& stretch)
{
    QBoxLayout& box = handle.get();
    const int place = requireIndex(index, box.count(), "BoxLayout.setStretch()");
    box.setStretch(place, requireStretch(stretch, "BoxLayout.setStretch(), expected type 'int' but got '%s' instead"));
}

bp::object widget(const Handle<QBoxLayout>& handle, const bp::object& index)
{
    QBoxLayout& box = handle.get();
    return wrapWidget(box.itemAt(requireIndex(index, box.count(), "BoxLayout.widget()"))->widget());
}

bp::object layout(const Handle<QBoxLayout>& handle, const bp::object& index)
{
    QBoxLayout& box = handle.get();
    return layoutObject(box.itemAt(requireIndex(index, box.count(), "BoxLayout.layout()"))->layout());
}

bp::object alignment(const Handle<QBoxLayout>& handle, const bp::object& index)
{
    QBoxLayout& box = handle.get();
    const Qt::Alignment value = box.itemAt(requireIndex(index, box.count(), "BoxLayout.alignment()"))->alignment();
    return owned(toPython(value));
}

} // namespace

void bindBoxLayout()
{
    bindBase<QBoxLayout>("BoxLayout", "A row or column of widgets. Its parts are counted from 0, stretches among them.")
        .def("addStretch", addStretch, (bp::arg("self"), bp::arg("stretch") = 0),
             "addStretch(stretch: int = 0) -> None\n\nPuts an empty place at the end, which takes the room that the "
             "widgets leave.\n\nRaises TypeError, and ValueError for a negative stretch.")
        .def("addSpacing", addSpacing, bp::args("self", "pixels"),
             "addSpacing(pixels: int) -> None\n\nPuts an empty place of this size at the end.\n\nRaises TypeError, and "
             "ValueError for a negative size.")
        .def("stretch", stretch, bp::args("self", "index"),
             "stretch(index: int) -> int\n\nThe stretch of the part at `index`.\n\nRaises TypeError, IndexError.")
        .def("setStretch", setStretch, bp::args("self", "index", "stretch"),
             "setStretch(index: int, stretch: int) -> None\n\nRaises TypeError, IndexError, and ValueError for a "
             "negative stretch.")
        .def(
            "widget", widget, bp::args("self", "index"),
            "widget(index: int) -> Widget | None\n\nThe widget at `index`; None when the part there is none.\n\nRaises "
            "TypeError, IndexError.")
        .def(
            "layout", layout, bp::args("self", "index"),
            "layout(index: int) -> Layout | None\n\nThe layout at `index`; None when the part there is none.\n\nRaises "
            "TypeError, IndexError.")
        .def("alignment", alignment, bp::args("self", "index"),
             "alignment(index: int) -> Align\n\nWhere the part at `index` stands in its room; 0 when it fills "
             "it.\n\nRaises TypeError, IndexError.");
    bindBase<QHBoxLayout>("HBoxLayout", "HBoxLayout(parent: Widget = None, **properties)\n\nWidgets side by side, from "
                                        "left to right.");
    bindLayoutConstructor<QHBoxLayout>("__init__(parent: Widget = None, **properties) -> None\n\nAn empty row for "
                                       "`parent`; spacing and margin go by name.");
    bindBase<QVBoxLayout>("VBoxLayout", "VBoxLayout(parent: Widget = None, **properties)\n\nWidgets one below the "
                                        "other.");
    bindLayoutConstructor<QVBoxLayout>("__init__(parent: Widget = None, **properties) -> None\n\nAn empty column for "
                                       "`parent`; spacing and margin go by name.");
}

} // namespace python
