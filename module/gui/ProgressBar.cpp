#include "module/Bindings.h"
#include "module/gui/Connector.h"
#include "module/gui/Construction.h"
#include "module/gui/Property.h"

#include <QProgressBar>

#include <algorithm>

namespace bp = boost::python;

namespace python {

namespace {

using QProgressBarIndirect = Indirect<QProgressBar>;
using PyProgressBar = Wrapper<QProgressBarIndirect>;

constexpr ConstructorArguments g_arguments = {{"parent", "parentWidget"}};

/// Qt ignores values beyond the bounds: a bar whose last step is too long would never be full.
void setValue(QProgressBar& bar, int value)
{
    const bool isBusy = bar.minimum() == 0 && bar.maximum() == 0;
    bar.setValue(isBusy ? value : std::clamp(value, bar.minimum(), bar.maximum()));
}

PyGetSetDef g_properties[] = {
    property<&QProgressBar::value, setValue>("value", "int: How far it is; a number beyond `minimum` or `maximum` "
                                                      "becomes that. A new bar, and one after reset(), is at -1."),
    property<&QProgressBar::minimum, &QProgressBar::setMinimum>(
        "minimum", "int: The value of the empty bar, at first 0. A maximum below it becomes the same."),
    property<&QProgressBar::maximum, &QProgressBar::setMaximum>(
        "maximum", "int: The value of the full bar, at first 100. With minimum and maximum 0 the bar only shows that "
                   "something goes on."),
    property<&QProgressBar::format, &QProgressBar::setFormat>(
        "textFormat", "str: The text on the bar: %p becomes the percentage, %v the value, %m the number of steps."),
    property<&QProgressBar::isTextVisible, &QProgressBar::setTextVisible>("textVisible",
                                                                          "bool: Whether the bar shows its text."),
    property<&QProgressBar::orientation, &QProgressBar::setOrientation>("orientation", "Orientation: How it lies."),
};

void reset(const Handle<QProgressBar>& handle)
{
    handle.get().reset();
}

void valueChanged(const Handle<QProgressBar>& handle, const bp::object& callable)
{
    connectValue<int>(handle.get(), &QProgressBar::valueChanged, callable, "ProgressBar.valueChanged()");
}

} // namespace

void bindProgressBar()
{
    bindBase<QProgressBar>("_QProgressBar", "What progress bars in windows have.")
        .def("reset", reset, bp::args("self"), "reset() -> None\n\nBack to the start: an empty bar without a text.")
        .def("valueChanged", valueChanged, bp::args("self", "callable"),
             "valueChanged(callable: Callable[[int], object]) -> None\n\nCalls `callable` with the new value whenever "
             "it changes.\n\nRaises TypeError for what can not be called.");
    installProperties<QProgressBar>(g_properties);
    bindPublic<QProgressBar>("ProgressBar", "ProgressBar(parent: Widget = None, **properties)\n\nA bar in a window of "
                                            "a script that shows how far something is.");
    bindConstructor<PyProgressBar, g_arguments>(
        "__init__(parent: Widget = None, **properties) -> None\n\nAn empty bar; minimum, maximum and the other "
        "properties go by name.");
}

} // namespace python
