#include "module/Bindings.h"
#include "module/gui/Connector.h"
#include "module/gui/Construction.h"
#include "module/gui/Property.h"
#include "module/gui/RangeArguments.h"

#include <QDoubleSpinBox>

namespace bp = boost::python;

namespace python {

namespace {

using QSpinBoxIndirect = Indirect<QSpinBox>;
using PySpinBox = Wrapper<QSpinBoxIndirect>;
using QDoubleSpinBoxIndirect = Indirect<QDoubleSpinBox>;
using PyDoubleSpinBox = Wrapper<QDoubleSpinBoxIndirect>;

constexpr ConstructorArguments g_arguments = {{"parent", "parentWidget"}};

PyGetSetDef g_abstractProperties[] = {
    property<&QAbstractSpinBox::specialValueText, &QAbstractSpinBox::setSpecialValueText>(
        "specialValueText", "str: What the box shows in place of its minimum, 'Automatic'; empty for the number."),
    property<&QAbstractSpinBox::isReadOnly, &QAbstractSpinBox::setReadOnly>(
        "readOnly", "bool: Whether the user can only look and copy."),
    property<&QAbstractSpinBox::wrapping, &QAbstractSpinBox::setWrapping>(
        "wrapping", "bool: Whether a step beyond the maximum leads to the minimum, as for angles."),
    property<&QAbstractSpinBox::keyboardTracking, &QAbstractSpinBox::setKeyboardTracking>(
        "keyboardTracking", "bool: Whether the value changes with every key typed, or when the user is done."),
    property<&QAbstractSpinBox::alignment, &QAbstractSpinBox::setAlignment>(
        "alignment", "Align | int: Where the number stands in the box."),
};

PyGetSetDef g_properties[] = {
    property<&QSpinBox::value, &QSpinBox::setValue>("value",
                                                    "int: The number; one beyond `minimum` or `maximum` becomes that."),
    property<&QSpinBox::minimum, &QSpinBox::setMinimum>(
        "minimum", "int: The smallest number, at first 0. A maximum below it becomes the same."),
    property<&QSpinBox::maximum, &QSpinBox::setMaximum>(
        "maximum", "int: The largest number, at first 99. A minimum above it becomes the same."),
    property<&QSpinBox::singleStep, setStep<&QSpinBox::setSingleStep, QSpinBox>>(
        "singleStep", "int: What one press of an arrow adds or takes away."),
    property<&QSpinBox::prefix, &QSpinBox::setPrefix>("prefix", "str: What stands before the number."),
    property<&QSpinBox::suffix, &QSpinBox::setSuffix>("suffix", "str: What stands behind the number, ' ms'."),
};

PyGetSetDef g_doubleProperties[] = {
    property<&QDoubleSpinBox::value, setFinite<&QDoubleSpinBox::setValue, QDoubleSpinBox>>(
        "value", "float: The number, rounded to `decimals`; one beyond `minimum` or `maximum` becomes that."),
    property<&QDoubleSpinBox::minimum, setFinite<&QDoubleSpinBox::setMinimum, QDoubleSpinBox>>(
        "minimum", "float: The smallest number, at first 0. A maximum below it becomes the same."),
    property<&QDoubleSpinBox::maximum, setFinite<&QDoubleSpinBox::setMaximum, QDoubleSpinBox>>(
        "maximum", "float: The largest number, at first 99.99. A minimum above it becomes the same."),
    property<&QDoubleSpinBox::decimals, &QDoubleSpinBox::setDecimals>(
        "decimals", "int: Digits behind the point, 0 to 323, at first 2. Value and bounds are rounded to them."),
    property<&QDoubleSpinBox::singleStep, setFiniteStep<&QDoubleSpinBox::setSingleStep, QDoubleSpinBox>>(
        "singleStep", "float: What one press of an arrow adds or takes away."),
    property<&QDoubleSpinBox::prefix, &QDoubleSpinBox::setPrefix>("prefix", "str: What stands before the number."),
    property<&QDoubleSpinBox::suffix, &QDoubleSpinBox::setSuffix>("suffix",
                                                                  "str: What stands behind the number, ' Hz'."),
};

void valueChanged(const Handle<QSpinBox>& handle, const bp::object& callable)
{
    connectValue<int>(handle.get(), qOverload<int>(&QSpinBox::valueChanged), callable, "SpinBox.valueChanged()");
}

void doubleValueChanged(const Handle<QDoubleSpinBox>& handle, const bp::object& callable)
{
    connectValue<double>(handle.get(), qOverload<double>(&QDoubleSpinBox::valueChanged), callable,
                         "DoubleSpinBox.valueChanged()");
}

} // namespace

void bindAbstractSpinBox()
{
    bindBase<QAbstractSpinBox>("_QAbstractSpinBox", "What fields for numbers have.");
    installProperties<QAbstractSpinBox>(g_abstractProperties);
}

void bindSpinBox()
{
    bindBase<QSpinBox>("_QSpinBox", "What fields for whole numbers have.")
        .def("valueChanged", valueChanged, bp::args("self", "callable"),
             "valueChanged(callable: Callable[[int], object]) -> None\n\nCalls `callable` with the new number whenever "
             "it changes, by the user or by a script.\n\nRaises TypeError for what can not be called.");
    installProperties<QSpinBox>(g_properties);
    bindPublic<QSpinBox>("SpinBox", "SpinBox(parent: Widget = None, **properties)\n\nA field for a whole number, with "
                                    "arrows that count up and down.");
    bindConstructor<PySpinBox, g_arguments>(
        "__init__(parent: Widget = None, **properties) -> None\n\nA field for 0 to 99; minimum, maximum, value and "
        "the other properties go by name.");
}

void bindDoubleSpinBox()
{
    bindBase<QDoubleSpinBox>("_QDoubleSpinBox", "What fields for numbers with a decimal point have.")
        .def("valueChanged", doubleValueChanged, bp::args("self", "callable"),
             "valueChanged(callable: Callable[[float], object]) -> None\n\nCalls `callable` with the new number "
             "whenever it changes, by the user or by a script.\n\nRaises TypeError for what can not be called.");
    installProperties<QDoubleSpinBox>(g_doubleProperties);
    bindPublic<QDoubleSpinBox>("DoubleSpinBox",
                               "DoubleSpinBox(parent: Widget = None, **properties)\n\nA field for a number with a "
                               "decimal point, with arrows that count up and down.");
    bindConstructor<PyDoubleSpinBox, g_arguments>(
        "__init__(parent: Widget = None, **properties) -> None\n\nA field for 0.00 to 99.99; decimals, minimum, "
        "maximum, value and the other properties go by name.");
}

} // namespace python
