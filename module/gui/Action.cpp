#include "host/widgets/HVPluginContributions.h"
#include "module/Bindings.h"
#include "module/app/PluginContext.h"
#include "module/gui/Handles.h"
#include "module/gui/IconHandle.h"
#include "runtime/Callback.h"
#include "runtime/Errors.h"

namespace bp = boost::python;

namespace python {

bp::object addAction(QWidget& place, const char* function, const bp::object& text, const bp::object& callable,
                     const bp::object& icon)
{
    const std::string name(function);
    const QString label = requireStr(text, (name + ", expected 'str' but got '%s' instead").c_str());
    if (!PyCallable_Check(callable.ptr()))
        raise(PyExc_TypeError, (name + ", expected callable object, but got '%s' instead").c_str(), typeName(callable));
    const bp::extract<const IconHandle&> given(icon);
    if (!icon.is_none() && !given.check())
        raise(PyExc_TypeError, (name + ", expected 'Icon' but got '%s' instead").c_str(), typeName(icon));

    auto* action = new QAction(label, &place);
    if (!icon.is_none())
        action->setIcon(given().icon);
    // The call may unload the plug-in and destroy the action with it.
    QObject::connect(action, &QAction::triggered, action, [callback = Callback(callable, label)] { callback(); });
    place.addAction(action);
    HVPluginContributions::instance().add(callingPluginFolder(), action);
    return wrapObject<ActionHandle>(action);
}

namespace {

bp::object text(const ActionHandle& handle)
{
    return unicodeText(handle.action().text());
}

void setText(const ActionHandle& handle, const QString& label)
{
    handle.action().setText(label);
}

bp::object toolTip(const ActionHandle& handle)
{
    return unicodeText(handle.action().toolTip());
}

void setToolTip(const ActionHandle& handle, const QString& tip)
{
    handle.action().setToolTip(tip);
    handle.action().setStatusTip(tip);
}

bool enabled(const ActionHandle& handle)
{
    return handle.action().isEnabled();
}

void setEnabled(const ActionHandle& handle, bool value)
{
    handle.action().setEnabled(value);
}

void trigger(const ActionHandle& handle)
{
    handle.action().trigger();
}

} // namespace

void bindAction()
{
    bp::class_<ActionHandle, bp::bases<ObjectHandle>, std::shared_ptr<ActionHandle>, boost::noncopyable>(
        "Action", "A command in a menu or a tool bar, as addAction() returns it.", bp::no_init)
        .add_property("text", text, setText, "str: What the command is called.")
        .add_property("toolTip", toolTip, setToolTip, "str: The text under the mouse and in the status bar.")
        .add_property("enabled", enabled, setEnabled, "bool: Whether the user can choose the command.")
        .def("trigger", trigger, bp::args("self"),
             "trigger() -> None\n\nDoes what choosing the command does; nothing while it is not enabled.");
}

} // namespace python
