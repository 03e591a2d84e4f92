#include "host/display/Contouring.h"

#include "module/Bindings.h"
#include "module/CheckedSetter.h"
#include "runtime/Errors.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

namespace {

using display::Contouring;

void setStep(Contouring& self, double step)
{
    if (!self.setStep(step))
        raise(PyExc_ValueError, "Contouring, step value must be greater than 0");
}

} // namespace

void bindContouring()
{
    // The view and the scripts share the settings, so either may go first.
    bp::class_<Contouring, std::shared_ptr<Contouring>, boost::noncopyable>(
        "Contouring",
        "The contour-line settings of a map view. The view redraws its lines after every assignment; limits and step "
        "are "
        "in the unit of the contoured values.",
        bp::init<>(bp::args("self"), "Contouring() -> None\n\nSettings that no view shows yet: hidden, step 1."))
        .add_property("visible", &Contouring::isVisible, checkedSetter("Contouring.visible", &Contouring::setVisible),
                      "bool: Whether contours are shown.")
        .add_property("withLimits", &Contouring::isLimited,
                      checkedSetter("Contouring.withLimits", &Contouring::setLimited),
                      "bool: Whether contours are restricted to [min, max].")
        .add_property("min", &Contouring::minimum, checkedSetter("Contouring.min", &Contouring::setMinimum),
                      "float: Lower contour limit.")
        .add_property("max", &Contouring::maximum, checkedSetter("Contouring.max", &Contouring::setMaximum),
                      "float: Upper contour limit.")
        .add_property("contouringMode", &Contouring::mode,
                      checkedSetter("Contouring.contouringMode", &Contouring::setMode),
                      "ContouringMode: What is contoured, the data values or the Z values.")
        .add_property("step", &Contouring::step, checkedSetter("Contouring.step", setStep),
                      "float: The contour interval. Raises ValueError unless it is greater than 0.")
        .add_property("pen", bp::make_function(&Contouring::pen, bp::return_value_policy<bp::copy_const_reference>()),
                      checkedSetter("Contouring.pen", &Contouring::setPen),
                      "Pen: The line style of the contours. Reading gives a copy; assign it to change the contours.")
        .add_property("minValue", &Contouring::valueMinimum, "float: The smallest of the contoured values. Read-only.")
        .add_property("maxValue", &Contouring::valueMaximum, "float: The largest of the contoured values. Read-only.");
}

} // namespace python
