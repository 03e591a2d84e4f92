#include "module/Bindings.h"
#include "module/gui/Connector.h"
#include "module/gui/Construction.h"
#include "module/gui/Property.h"
#include "module/gui/Widgets.h"

#include <QPushButton>

namespace bp = boost::python;

namespace python {

namespace {

using QPushButtonIndirect = Indirect<QPushButton>;
using PyPushButton = Wrapper<QPushButtonIndirect>;

constexpr ConstructorArguments g_arguments = {{"text", "text"}, {"parent", "parentWidget"}};

QString shortcut(QAbstractButton& button)
{
    return button.shortcut().toString();
}

void setShortcut(QAbstractButton& button, const QString& keys)
{
    const QKeySequence sequence(keys);
    if (!keys.isEmpty() && (sequence.isEmpty() || sequence.toString().isEmpty()))
        raise(PyExc_ValueError, "Button.shortcut, '%s' is no key sequence", keys.toUtf8().constData());
    button.setShortcut(sequence);
}

PyGetSetDef g_abstractProperties[] = {
    property<&QAbstractButton::text, &QAbstractButton::setText>(
        "text", "str: The label; a letter after '&' is the key that Alt makes press it."),
    property<&QAbstractButton::icon, &QAbstractButton::setIcon>("icon", "Icon: The picture beside the text."),
    property<&QAbstractButton::iconSize, &QAbstractButton::setIconSize>("iconSize", "Size: The icon's size in pixels."),
    property<&QAbstractButton::isCheckable, &QAbstractButton::setCheckable>(
        "checkable", "bool: Whether pressing it switches it on or off."),
    property<&QAbstractButton::isChecked, &QAbstractButton::setChecked>("checked", "bool: Whether it is switched on."),
    property<shortcut, setShortcut>("shortcut", "str: Keys that press it from anywhere in the window, 'Ctrl+R'."),
};

bp::object menu(QPushButton& button)
{
    return wrapWidget(button.menu());
}

void setMenu(QPushButton& button, const bp::object& value)
{
    const bp::extract<const Handle<QMenu>&> handle(value);
    if (!value.is_none() && !handle.check())
        raiseWrongType("Button.menu", "Menu", value.ptr());
    QMenu* given = value.is_none() ? nullptr : &handle().get();
    button.setMenu(given);
    holdOnlyMenu(button, value);
}

PyGetSetDef g_properties[] = {
    property<&QPushButton::isDefault, &QPushButton::setDefault>("default",
                                                                "bool: Whether the Return key presses it, in dialogs."),
    property<menu, setMenu>("menu", "Menu | None: What opens when the button is pressed."),
};

void clicked(const Handle<QPushButton>& handle, const bp::object& callable)
{
    connectCall(handle.get(), &QPushButton::clicked, callable, "Button.clicked()");
}

} // namespace

void bindAbstractButton()
{
    bindBase<QAbstractButton>("_QAbstractButton", "What everything that is pressed has.");
    installProperties<QAbstractButton>(g_abstractProperties);
}

void bindButton()
{
    bindBase<QPushButton>("_QPushButton", "What push buttons have.")
        .def("clicked", clicked, bp::args("self", "callable"),
             "clicked(callable: Callable[[], object]) -> None\n\nCalls `callable` whenever the button is pressed. An "
             "exception that it raises is printed.\n\nRaises TypeError for what can not be called.");
    installProperties<QPushButton>(g_properties);
    bindPublic<QPushButton>("Button", "Button(text: str = '', parent: Widget = None, **properties)\n\nA push button.");
    bindConstructor<PyPushButton, g_arguments>("__init__(text: str = '', parent: Widget = None, **properties) -> "
                                               "None\n\nA button; icon, shortcut and the other "
                                               "properties go by name.");
}

} // namespace python
