#include "module/Bindings.h"
#include "module/gui/Handles.h"
#include "runtime/Errors.h"

#include <QThread>

namespace bp = boost::python;

namespace python {

WidgetHandle::~WidgetHandle()
{
    auto* widget = m_owned ? static_cast<QWidget*>(objectOrNull()) : nullptr;
    if (!widget || widget->parent())
        return;
    if (QThread::currentThread() == widget->thread())
        delete widget;
    else
        widget->deleteLater();
}

namespace {

/// The public class beside the base that every widget shares.
class PlainWidgetHandle : public WidgetHandle
{
public:
    using WidgetHandle::WidgetHandle;
};

std::shared_ptr<PlainWidgetHandle> makeWidget()
{
    return makeOwned<PlainWidgetHandle, QWidget>();
}

bp::object windowTitle(const WidgetHandle& handle)
{
    return unicodeText(handle.widget().windowTitle());
}

void setWindowTitle(const WidgetHandle& handle, const QString& title)
{
    handle.widget().setWindowTitle(title);
}

bp::object toolTip(const WidgetHandle& handle)
{
    return unicodeText(handle.widget().toolTip());
}

void setToolTip(const WidgetHandle& handle, const QString& text)
{
    handle.widget().setToolTip(text);
}

template <auto Getter>
auto get(const WidgetHandle& handle)
{
    return (handle.widget().*Getter)();
}

template <auto Setter>
void set(const WidgetHandle& handle, bool value)
{
    (handle.widget().*Setter)(value);
}

void show(const WidgetHandle& handle)
{
    handle.widget().show();
}

void hide(const WidgetHandle& handle)
{
    handle.widget().hide();
}

bool close(const WidgetHandle& handle)
{
    return handle.widget().close();
}

} // namespace

void bindWidget()
{
    bp::class_<WidgetHandle, bp::bases<ObjectHandle>, std::shared_ptr<WidgetHandle>, boost::noncopyable>(
        "_QWidget", "What all windows and parts of windows have in common.", bp::no_init)
        .add_property("width", get<&QWidget::width>, "int: Width in pixels. Read-only.")
        .add_property("height", get<&QWidget::height>, "int: Height in pixels. Read-only.")
        .add_property("windowTitle", windowTitle, setWindowTitle, "str: The text in the title bar or the tab.")
        .add_property("toolTip", toolTip, setToolTip, "str: The text that appears under the mouse.")
        .add_property("enabled", get<&QWidget::isEnabled>, set<&QWidget::setEnabled>,
                      "bool: Whether the user can use the widget.")
        .add_property("visible", get<&QWidget::isVisible>, set<&QWidget::setVisible>,
                      "bool: Whether the widget is shown.")
        .def("show", show, bp::args("self"), "show() -> None\n\nShows the widget.")
        .def("hide", hide, bp::args("self"), "hide() -> None\n\nHides the widget.")
        .def("close", close, bp::args("self"),
             "close() -> bool\n\nCloses the window; False when it refused, for example over unsaved changes.");

    bp::class_<PlainWidgetHandle, bp::bases<WidgetHandle>, std::shared_ptr<PlainWidgetHandle>, boost::noncopyable>(
        "Widget", "Widget()\n\nAn empty widget.", bp::no_init)
        .def("__init__", bp::make_constructor(makeWidget), "__init__() -> None\n\nAn empty widget.");
}

} // namespace python
