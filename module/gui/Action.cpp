#include "module/Bindings.h"
#include "module/Conversion.h"
#include "module/gui/Connector.h"
#include "module/gui/Property.h"
#include "module/gui/Widgets.h"
#include "plugins/PluginContext.h"
#include "runtime/Errors.h"

namespace bp = boost::python;

namespace python {

bp::object addAction(QWidget& place, const char* function, const bp::object& text, const bp::object& callable,
                     const bp::object& icon)
{
    const std::string name(function);
    const QString label = Argument<QString>::from(text.ptr(), function);
    if (!PyCallable_Check(callable.ptr()))
        raise(PyExc_TypeError, (name + ", expected callable object, but got '%s' instead").c_str(), typeName(callable));
    const bp::extract<const IconHandle&> given(icon);
    if (!icon.is_none() && !given.check())
        raise(PyExc_TypeError, (name + ", expected 'Icon' but got '%s' instead").c_str(), typeName(icon));

    auto* action = new QAction(label, &place);
    if (!icon.is_none())
        action->setIcon(given().icon);
    connectCall(*action, &QAction::triggered, callable, function);
    place.addAction(action);
    noteContribution(action);
    return wrapObject<ActionHandle>(action);
}

namespace {

void setToolTip(QAction& action, const QString& tip)
{
    action.setToolTip(tip);
    action.setStatusTip(tip);
}

PyGetSetDef g_properties[] = {
    property<&QAction::text, &QAction::setText>("text", "str: What the command is called."),
    property<&QAction::toolTip, setToolTip>("toolTip", "str: The text under the mouse and in the status bar."),
    property<&QAction::icon, &QAction::setIcon>("icon", "Icon: The picture beside the text."),
    property<&QAction::isEnabled, &QAction::setEnabled>("enabled", "bool: Whether the user can choose it."),
    property<&QAction::isCheckable, &QAction::setCheckable>("checkable",
                                                            "bool: Whether choosing it switches it on or off."),
    property<&QAction::isChecked, &QAction::setChecked>("checked", "bool: Whether it is switched on."),
};

void trigger(const ActionHandle& handle)
{
    handle.action().trigger();
}

} // namespace

void bindAction()
{
    bp::class_<ActionHandle, bp::bases<ObjectHandle>, boost::noncopyable>(
        "Action", "A command in a menu or a tool bar, as addAction() returns it.", bp::no_init)
        .def("trigger", trigger, bp::args("self"),
             "trigger() -> None\n\nDoes what choosing the command does; nothing while it is not enabled.");
    for (PyGetSetDef& definition : g_properties)
        installProperty(classOf<ActionHandle>(), definition);
}

} // namespace python
