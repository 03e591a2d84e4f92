#include "host/widgets/HVSwitch.h"
#include "module/Bindings.h"
#include "module/drawing/ColorArgument.h"
#include "module/gui/Connector.h"
#include "module/gui/Construction.h"
#include "module/gui/Property.h"

namespace bp = boost::python;

namespace python {

namespace {

using HVSwitchIndirect = Indirect<HVSwitch>;
using PySwitch = Wrapper<HVSwitchIndirect>;

constexpr ConstructorArguments g_arguments = {{"text", "text"}, {"parent", "parentWidget"}};

/// An invalid colour is the theme's.
QColor colorOrTheme(const bp::object& value, const char* format)
{
    return value.is_none() ? QColor() : colorArgument(value, format);
}

void setOnColor(HVSwitch& widget, const bp::object& value)
{
    widget.setOnColor(colorOrTheme(value, "Switch.onColor, expected 'Color' but got '%s' instead"));
}

void setOffColor(HVSwitch& widget, const bp::object& value)
{
    widget.setOffColor(colorOrTheme(value, "Switch.offColor, expected 'Color' but got '%s' instead"));
}

PyGetSetDef g_properties[] = {
    property<&HVSwitch::onColor, setOnColor>(
        "onColor", "Color: The colour of the track when it is on. Setting None gives back the theme's."),
    property<&HVSwitch::offColor, setOffColor>(
        "offColor", "Color: The colour of the track when it is off. Setting None gives back the theme's."),
    property<&HVSwitch::isSwitched, &HVSwitch::setSwitched>("switched", "bool: Whether it is on."),
    property<&HVSwitch::animationDuration, &HVSwitch::setAnimationDuration>(
        "animationDuration", "int: Milliseconds that the knob is under way, 0 for none; negative ones become 0."),
};

void toggled(const Handle<HVSwitch>& handle, const bp::object& callable)
{
    connectValue<bool>(handle.get(), &HVSwitch::toggled, callable, "Switch.toggled()");
}

} // namespace

void bindSwitch()
{
    bindBase<HVSwitch>("_HVSwitch", "What switches have.")
        .def("toggled", toggled, bp::args("self", "callable"),
             "toggled(callable: Callable[[bool], object]) -> None\n\nCalls `callable` with True or False whenever it "
             "is switched on or off, by the user or by a script.\n\nRaises TypeError for what can not be called.");
    installProperties<HVSwitch>(g_properties);
    bindPublic<HVSwitch>("Switch", "Switch(text: str = '', parent: Widget = None, **properties)\n\nA knob that slides "
                                   "between off and on. The text stands in the free part of its track.");
    bindConstructor<PySwitch, g_arguments>("__init__(text: str = '', parent: Widget = None, **properties) -> None\n\n"
                                           "A switch that is off; switched and the other properties go by name.");
}

} // namespace python
