#include "module/Bindings.h"
#include "module/gui/Connector.h"
#include "module/gui/Construction.h"
#include "module/gui/Property.h"

#include <QCheckBox>
#include <QRadioButton>

namespace bp = boost::python;

namespace python {

namespace {

using QCheckBoxIndirect = Indirect<QCheckBox>;
using PyCheckBox = Wrapper<QCheckBoxIndirect>;
using QRadioButtonIndirect = Indirect<QRadioButton>;
using PyRadioButton = Wrapper<QRadioButtonIndirect>;

constexpr ConstructorArguments g_arguments = {{"text", "text"}, {"parent", "parentWidget"}};

PyGetSetDef g_checkBoxProperties[] = {
    property<&QCheckBox::checkState, &QCheckBox::setCheckState>(
        "checkState", "CheckState: Off, on, or in between; the latter makes the box a tristate one."),
    property<&QCheckBox::isTristate, &QCheckBox::setTristate>(
        "tristate", "bool: Whether clicking it also goes through CheckState.PartiallyChecked."),
};

void stateChanged(const Handle<QCheckBox>& handle, const bp::object& callable)
{
    QCheckBox& box = handle.get();
    const Connection connection(box, callable, "CheckBox.stateChanged()");
    QObject::connect(&box, &QCheckBox::stateChanged, connection.receiver, [callback = connection.callback](int state) {
        callback.with([&] { return toPython(static_cast<Qt::CheckState>(state)); });
    });
}

void radioStateChanged(const Handle<QRadioButton>& handle, const bp::object& callable)
{
    connectValue<bool>(handle.get(), &QRadioButton::toggled, callable, "RadioButton.stateChanged()");
}

} // namespace

void bindCheckBox()
{
    bindBase<QCheckBox>("_QCheckBox", "What check boxes have.")
        .def("stateChanged", stateChanged, bp::args("self", "callable"),
             "stateChanged(callable: Callable[[CheckState], object]) -> None\n\nCalls `callable` with the new state "
             "whenever it changes, by the user or by a script. CheckState.Unchecked is 0 and false.\n\nRaises "
             "TypeError for what can not be called.");
    installProperties<QCheckBox>(g_checkBoxProperties);
    bindPublic<QCheckBox>("CheckBox", "CheckBox(text: str = '', parent: Widget = None, **properties)\n\nA box with a "
                                      "text that is switched on and off.");
    bindConstructor<PyCheckBox, g_arguments>(
        "__init__(text: str = '', parent: Widget = None, **properties) -> None\n\nA box that is off; checked, "
        "checkState and the other properties go by name.");
}

void bindRadioButton()
{
    bindBase<QRadioButton>("_QRadioButton", "What radio buttons have.")
        .def("stateChanged", radioStateChanged, bp::args("self", "callable"),
             "stateChanged(callable: Callable[[bool], object]) -> None\n\nCalls `callable` with True when the button "
             "is switched on and with False when another one takes its place.\n\nRaises TypeError for what can not be "
             "called.");
    bindPublic<QRadioButton>("RadioButton",
                             "RadioButton(text: str = '', parent: Widget = None, **properties)\n\nOne of the choices "
                             "in a widget: switching it on switches the others with the same parent off.");
    bindConstructor<PyRadioButton, g_arguments>("__init__(text: str = '', parent: Widget = None, **properties) -> "
                                                "None\n\nA choice that is off; checked and the other properties go "
                                                "by name.");
}

} // namespace python
