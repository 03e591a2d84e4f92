#include "module/Bindings.h"
#include "module/gui/Connector.h"
#include "module/gui/Construction.h"
#include "module/gui/Property.h"

#include <QLineEdit>

namespace bp = boost::python;

namespace python {

namespace {

using QLineEditIndirect = Indirect<QLineEdit>;
using PyLineEdit = Wrapper<QLineEditIndirect>;

constexpr ConstructorArguments g_arguments = {{"text", "text"}, {"parent", "parentWidget"}};

PyGetSetDef g_properties[] = {
    property<&QLineEdit::text, &QLineEdit::setText>("text", "str: What is in the field."),
    property<&QLineEdit::placeholderText, &QLineEdit::setPlaceholderText>("placeholderText",
                                                                          "str: What an empty field shows."),
    property<&QLineEdit::isClearButtonEnabled, &QLineEdit::setClearButtonEnabled>(
        "clearButtonEnabled", "bool: Whether a field with text has a button at its end that clears it."),
    property<&QLineEdit::isReadOnly, &QLineEdit::setReadOnly>("readOnly",
                                                              "bool: Whether the user can only look and copy."),
    property<&QLineEdit::alignment, &QLineEdit::setAlignment>("alignment",
                                                              "Align | int: Where the text stands in the field."),
    readOnly<&QLineEdit::hasSelectedText>("hasSelectedText", "bool: Whether a part of the text is selected."),
    readOnly<&QLineEdit::selectedText>("selectedText", "str: The selected part of the text."),
};

template <void (QLineEdit::*action)()>
void act(const Handle<QLineEdit>& handle)
{
    (handle.get().*action)();
}

void textChanged(const Handle<QLineEdit>& handle, const bp::object& callable)
{
    connectValue<const QString&>(handle.get(), &QLineEdit::textChanged, callable, "LineEdit.textChanged()");
}

void returnPressed(const Handle<QLineEdit>& handle, const bp::object& callable)
{
    connectCall(handle.get(), &QLineEdit::returnPressed, callable, "LineEdit.returnPressed()");
}

void editingFinished(const Handle<QLineEdit>& handle, const bp::object& callable)
{
    connectCall(handle.get(), &QLineEdit::editingFinished, callable, "LineEdit.editingFinished()");
}

} // namespace

void bindLineEdit()
{
    bindBase<QLineEdit>("_QLineEdit", "What text fields of one line have.")
        .def("clear", act<&QLineEdit::clear>, bp::args("self"), "clear() -> None\n\nEmpties the field.")
        .def("selectAll", act<&QLineEdit::selectAll>, bp::args("self"), "selectAll() -> None\n\nSelects the text.")
        .def("textChanged", textChanged, bp::args("self", "callable"),
             "textChanged(callable: Callable[[str], object]) -> None\n\nCalls `callable` with the new text whenever it "
             "changes, by the user or by a script.\n\nRaises TypeError for what can not be called.")
        .def("returnPressed", returnPressed, bp::args("self", "callable"),
             "returnPressed(callable: Callable[[], object]) -> None\n\nCalls `callable` when the user presses the "
             "Return or Enter key in the field.\n\nRaises TypeError for what can not be called.")
        .def("editingFinished", editingFinished, bp::args("self", "callable"),
             "editingFinished(callable: Callable[[], object]) -> None\n\nCalls `callable` when the user presses the "
             "Return or Enter key or leaves the field.\n\nRaises TypeError for what can not be called.");
    installProperties<QLineEdit>(g_properties);
    bindPublic<QLineEdit>("LineEdit", "LineEdit(text: str = '', parent: Widget = None, **properties)\n\nA field for "
                                      "text of one line.");
    bindConstructor<PyLineEdit, g_arguments>(
        "__init__(text: str = '', parent: Widget = None, **properties) -> None\n\nA text field; placeholderText and "
        "the other properties go by name.");
}

} // namespace python
