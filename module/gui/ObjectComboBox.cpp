#include "host/widgets/HVObjectComboBox.h"
#include "module/Bindings.h"
#include "module/gui/Connector.h"
#include "module/gui/Construction.h"
#include "module/gui/ObjectChoice.h"

namespace bp = boost::python;

namespace python {

/// A file that was written a moment ago may not be listed yet.
template <>
bool Chooser<HVObjectComboBox>::choose(HVObjectComboBox& box, const QString& path)
{
    if (box.setObject(path))
        return true;
    const QPointer<HVObjectComboBox> living(&box); // listing tells of changes
    box.updateObjects();
    return living && box.setObject(path);
}

namespace {

using HVObjectComboBoxIndirect = Indirect<HVObjectComboBox>;
using PyObjectComboBox = Wrapper<HVObjectComboBoxIndirect>;

constexpr ConstructorArguments g_arguments = {{"kinds", "kinds"}, {"parent", "parentWidget"}};

constexpr ChoiceTexts g_texts = {"ObjectComboBox", "ObjectComboBox, expected 'ObjectId' but got '%s'",
                                 "ObjectComboBox, expected ObjectId but got '%s'", "ObjectComboBox, no project loaded"};

} // namespace

template <>
struct Maker<PyObjectComboBox>
{
    static constexpr const char* taken = "kinds";
    static PyObjectComboBox* make(PyObject* value)
    {
        const bp::object kinds = value ? bp::object(bp::handle<>(bp::borrowed(value))) : bp::object();
        const HVObjectComboBox::FirstKinds first(kindsArgument(kinds, g_texts));
        return new PyObjectComboBox;
    }
};

namespace {

PyGetSetDef g_properties[] = {
    kindsProperty<HVObjectComboBox, g_texts>(),
    objectFilenameProperty<HVObjectComboBox, g_texts>(),
    objectIdProperty<HVObjectComboBox>(),
    property<&HVObjectComboBox::isOptional, &HVObjectComboBox::setOptional>(
        "optional", "bool: Whether a first item \"None\" stands for no object."),
};

void updateObjects(const Handle<HVObjectComboBox>& handle)
{
    HVObjectComboBox& box = handle.get();
    if (!box.project())
        raise(PyExc_RuntimeError, "%s", g_texts.noProject);
    box.updateObjects();
}

void objectChanged(const Handle<HVObjectComboBox>& handle, const bp::object& callable)
{
    connectValue<ChosenFile>(handle.get(), &HVObjectComboBox::objectChanged, callable,
                             "ObjectComboBox.objectChanged()");
}

} // namespace

void bindObjectComboBox()
{
    bindBase<HVObjectComboBox>("_HVObjectComboBox", "What boxes with objects of the project have.")
        .def("updateObjects", updateObjects, bp::args("self"),
             "updateObjects() -> None\n\nLists the objects at once. Changes of the project are listed in a moment "
             "anyway.\n\nRaises RuntimeError when no project is open.")
        .def("objectChanged", objectChanged, bp::args("self", "callable"),
             "objectChanged(callable: Callable[[str | None], object]) -> None\n\nCalls `callable` with the file of the "
             "chosen object, None for none, whenever another one is chosen: by the user, by a script, or because the "
             "project was closed or the object removed or renamed.\n\nRaises TypeError for what can not be called.");
    installProperties<HVObjectComboBox>(g_properties);
    bindPublic<HVObjectComboBox>(
        "ObjectComboBox", "ObjectComboBox(kinds: ObjectId | Iterable[ObjectId] = None, parent: Widget = None, "
                          "**properties)\n\nA combo box of the open project's objects. It follows the project: the "
                          "items come and go with the objects, and a script can not change them. An item's userData is "
                          "the object's file.");
    bindConstructor<PyObjectComboBox, g_arguments>(
        "__init__(kinds: ObjectId | Iterable[ObjectId] = None, parent: Widget = None, **properties) -> None\n\nA box "
        "of the objects of one kind, of several, or of all. Without an open project it is empty until one is opened.");
}

} // namespace python
