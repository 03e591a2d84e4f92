#include "host/widgets/HVInputSelectionLineEdit.h"
#include "host/widgets/HVInputSelectionPreview.h"
#include "module/Bindings.h"
#include "module/gui/Connector.h"
#include "module/gui/Construction.h"
#include "module/gui/ObjectChoice.h"

namespace bp = boost::python;

namespace python {

template <>
struct Chooser<HVInputSelectionPreview>
{
    static HVInputSelectionLineEdit& of(HVInputSelectionPreview& preview) { return *preview.selection(); }
    static bool choose(HVInputSelectionPreview& preview, const QString& path)
    {
        return preview.selection()->setObject(path);
    }
};

namespace {

using HVInputSelectionLineEditIndirect = Indirect<HVInputSelectionLineEdit>;
using PyInputSelectionLineEdit = Wrapper<HVInputSelectionLineEditIndirect>;
using HVInputSelectionPreviewIndirect = Indirect<HVInputSelectionPreview>;
using PyInputSelectionPreview = Wrapper<HVInputSelectionPreviewIndirect>;

constexpr ConstructorArguments g_arguments = {{"kinds", "kinds"}, {"parent", "parentWidget"}};

constexpr ChoiceTexts g_lineTexts = {
    "InputSelectionLineEdit", "InputSelectionLineEdit, expected 'ObjectId' but got '%s'",
    "InputSelectionLineEdit, expected ObjectId but got '%s'", "InputSelectionLineEdit, no project loaded"};
constexpr ChoiceTexts g_previewTexts = {
    "InputSelectionPreview", "InputSelectionPreview, expected 'ObjectId' but got '%s'",
    "InputSelectionPreview, expected ObjectId but got '%s'", "InputSelectionPreview, no project loaded"};

PyGetSetDef g_lineProperties[] = {
    kindsProperty<HVInputSelectionLineEdit, g_lineTexts>(),
    objectFilenameProperty<HVInputSelectionLineEdit, g_lineTexts>(),
    objectIdProperty<HVInputSelectionLineEdit>(),
    property<&HVInputSelectionLineEdit::placeholderText, &HVInputSelectionLineEdit::setPlaceholderText>(
        "placeholderText", "str: What the field shows when nothing is chosen; empty for the usual text."),
};

void selectionChanged(const Handle<HVInputSelectionLineEdit>& handle, const bp::object& callable)
{
    connectValue<ChosenFile>(handle.get(), &HVInputSelectionLineEdit::selectionChanged, callable,
                             "InputSelectionLineEdit.selectionChanged()");
}

bp::object selection(HVInputSelectionPreview& preview)
{
    return wrapWidget(preview.selection());
}

void setPreviewMouseMode(HVInputSelectionPreview& preview, HVMouseMode mode)
{
    if (const auto set = preview.setPreviewMouseMode(mode); !set)
        raise(PyExc_ValueError, "%s", set.failure().sentence.toUtf8().constData());
}

PyGetSetDef g_previewProperties[] = {
    kindsProperty<HVInputSelectionPreview, g_previewTexts>(),
    objectFilenameProperty<HVInputSelectionPreview, g_previewTexts>(),
    objectIdProperty<HVInputSelectionPreview>(),
    readOnly<selection>("selection", "InputSelectionLineEdit: The field above the viewer, a part of the preview."),
    property<&HVInputSelectionPreview::previewMouseMode, setPreviewMouseMode>(
        "previewMouseMode", "MouseMode: What the mouse does in the viewer. Setting raises ValueError for "
                            "MouseMode.Unknown."),
};

void viewerChanged(const Handle<HVInputSelectionPreview>& handle, const bp::object& callable)
{
    connectCall(handle.get(), &HVInputSelectionPreview::viewerChanged, callable,
                "InputSelectionPreview.viewerChanged()");
}

} // namespace

void bindInputSelectionLineEdit()
{
    bindBase<HVInputSelectionLineEdit>("_HVInputSelectionLineEdit", "What fields for an object of the project have.")
        .def("selectionChanged", selectionChanged, bp::args("self", "callable"),
             "selectionChanged(callable: Callable[[str | None], object]) -> None\n\nCalls `callable` with the file of "
             "the chosen object, None for none, whenever another one is chosen: by the user, by a script, or because "
             "the project was closed or the object removed or renamed.\n\nRaises TypeError for what can not be "
             "called.");
    installProperties<HVInputSelectionLineEdit>(g_lineProperties);
    bindPublic<HVInputSelectionLineEdit>(
        "InputSelectionLineEdit",
        "InputSelectionLineEdit(kinds: ObjectId | Iterable[ObjectId] = None, parent: Widget = None, **properties)\n\n"
        "A field that shows an object of the open project and opens a tree to choose it from. Objects can be dragged "
        "onto it.");
    bindConstructor<PyInputSelectionLineEdit, g_arguments>(
        "__init__(kinds: ObjectId | Iterable[ObjectId] = None, parent: Widget = None, **properties) -> None\n\nA field "
        "for an object of one kind, of several, or of all; nothing is chosen.");
}

void bindInputSelectionPreview()
{
    bindBase<HVInputSelectionPreview>("_HVInputSelectionPreview", "What previews of an object of the project have.")
        .def("viewerChanged", viewerChanged, bp::args("self", "callable"),
             "viewerChanged(callable: Callable[[], object]) -> None\n\nCalls `callable` whenever the viewer shows "
             "another object, or none any more.\n\nRaises TypeError for what can not be called.");
    installProperties<HVInputSelectionPreview>(g_previewProperties);
    bindPublic<HVInputSelectionPreview>(
        "InputSelectionPreview",
        "InputSelectionPreview(kinds: ObjectId | Iterable[ObjectId] = None, parent: Widget = None, **properties)\n\n"
        "A field for an object of the open project over a small viewer that shows it.");
    bindConstructor<PyInputSelectionPreview, g_arguments>(
        "__init__(kinds: ObjectId | Iterable[ObjectId] = None, parent: Widget = None, **properties) -> None\n\nA "
        "preview for an object of one kind, of several, or of all; nothing is chosen.");
}

} // namespace python
