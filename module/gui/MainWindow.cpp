#include "module/Bindings.h"
#include "module/gui/Property.h"
#include "module/gui/Widgets.h"
#include "runtime/Errors.h"

#include <boost/python/raw_function.hpp>

namespace bp = boost::python;

namespace python {

namespace {

constexpr const char* g_illegal = "MainWindow, illegal method call";

/// The main window is the application's: a script that closed, hid or refilled it would take the user's work away.
bp::object refuse(const bp::tuple& /*arguments*/, const bp::dict& /*keywords*/)
{
    raise(PyExc_RuntimeError, g_illegal);
}

bp::object nothing(QWidget& /*window*/)
{
    return {};
}

void refuseValue(QWidget& /*window*/, const bp::object& /*value*/)
{
    raise(PyExc_RuntimeError, g_illegal);
}

PyGetSetDef g_properties[] = {
    property<&QWidget::isVisible, refuseValue>("visible", "bool: Whether it is shown. Read-only."),
    property<&QWidget::isEnabled, refuseValue>("enabled", "bool: Whether it can be used. Read-only."),
    property<nothing, refuseValue>("parentWidget", "None: It is in no other widget. Read-only."),
    property<nothing, refuseValue>("layout", "None: The application arranges it. Read-only."),
};

} // namespace

void bindMainWindow()
{
    bindBase<QMainWindow>("_QMainWindow", "What main windows have.");
    auto window = bindPublic<QMainWindow>(
        "MainWindow", "The application's main window. Calls that would take it from the user raise RuntimeError.");
    for (const char* name : {"show", "hide", "close", "setLayout", "setFixedSize", "setMinimumSize", "setMaximumSize"})
        window.def(name, bp::raw_function(refuse, 1),
                   (std::string(name) + "(*arguments) -> None\n\nAlways raises RuntimeError.").c_str());
    for (PyGetSetDef& definition : g_properties)
        installProperty(classOf<MainWindowHandle>(), definition);
}

} // namespace python
