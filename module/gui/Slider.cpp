#include "module/Bindings.h"
#include "module/gui/Connector.h"
#include "module/gui/Construction.h"
#include "module/gui/Property.h"
#include "module/gui/RangeArguments.h"

#include <QSlider>

namespace bp = boost::python;

namespace python {

namespace {

class QSliderIndirect : public Indirect<QSlider>
{
public:
    QSliderIndirect() { setOrientation(Qt::Horizontal); }
};

using PySlider = Wrapper<QSliderIndirect>;

constexpr ConstructorArguments g_arguments = {{"orientation", "orientation"}, {"parent", "parentWidget"}};

PyGetSetDef g_abstractProperties[] = {
    property<&QAbstractSlider::value, &QAbstractSlider::setValue>(
        "value", "int: The number; one beyond `minimum` or `maximum` becomes that."),
    property<&QAbstractSlider::minimum, &QAbstractSlider::setMinimum>(
        "minimum", "int: The smallest number, at first 0. A maximum below it becomes the same."),
    property<&QAbstractSlider::maximum, &QAbstractSlider::setMaximum>(
        "maximum", "int: The largest number, at first 99. A minimum above it becomes the same."),
    property<&QAbstractSlider::singleStep, setStep<&QAbstractSlider::setSingleStep, QAbstractSlider>>(
        "singleStep", "int: How far an arrow key moves it."),
    property<&QAbstractSlider::pageStep, setStep<&QAbstractSlider::setPageStep, QAbstractSlider>>(
        "pageStep", "int: How far a click beside the handle moves it."),
    property<&QAbstractSlider::hasTracking, &QAbstractSlider::setTracking>(
        "tracking", "bool: Whether the value follows the mouse, or changes when the button is let go."),
    property<&QAbstractSlider::orientation, &QAbstractSlider::setOrientation>("orientation",
                                                                              "Orientation: How it lies."),
};

PyGetSetDef g_properties[] = {
    property<&QSlider::tickPosition, &QSlider::setTickPosition>("tickPosition",
                                                                "SliderTickPosition: Where it has tick marks."),
    property<&QSlider::tickInterval, setStep<&QSlider::setTickInterval, QSlider>>(
        "tickInterval", "int: From one tick mark to the next; 0 goes by `singleStep` and `pageStep`."),
};

void valueChanged(const Handle<QSlider>& handle, const bp::object& callable)
{
    connectValue<int>(handle.get(), &QSlider::valueChanged, callable, "Slider.valueChanged()");
}

} // namespace

void bindAbstractSlider()
{
    bindBase<QAbstractSlider>("_QAbstractSlider", "What everything with a handle that moves along a line has.");
    installProperties<QAbstractSlider>(g_abstractProperties);
}

void bindSlider()
{
    bindBase<QSlider>("_QSlider", "What sliders have.")
        .def("valueChanged", valueChanged, bp::args("self", "callable"),
             "valueChanged(callable: Callable[[int], object]) -> None\n\nCalls `callable` with the new number whenever "
             "it changes, by the user or by a script.\n\nRaises TypeError for what can not be called.");
    installProperties<QSlider>(g_properties);
    bindPublic<QSlider>("Slider", "Slider(orientation: Orientation = Orientation.Horizontal, parent: Widget = None, "
                                  "**properties)\n\nA handle on a line that chooses a whole number.");
    bindConstructor<PySlider, g_arguments>(
        "__init__(orientation: Orientation = Orientation.Horizontal, parent: Widget = None, **properties) -> "
        "None\n\nA slider for 0 to 99; minimum, maximum, value and the other properties go by name.");
}

} // namespace python
