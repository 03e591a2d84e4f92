#pragma once

#include "module/gui/ObjectHandle.h"

#include <QAction>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTextEdit>
#include <QToolBar>

/// The kinds of handle, one for each class that scripts see.
namespace python {

class WidgetHandle : public ObjectHandle
{
public:
    explicit WidgetHandle(QWidget* widget, const char* className = "Widget") : ObjectHandle(widget, className) {}
    /// Destroys a widget that a script made and that no window has taken over.
    ~WidgetHandle() override;

    QWidget& widget() const { return alive<QWidget>(); }
    void setOwned() { m_owned = true; }

private:
    bool m_owned = false;
};

class ActionHandle : public ObjectHandle
{
public:
    explicit ActionHandle(QAction* action) : ObjectHandle(action, "Action") {}
    QAction& action() const { return alive<QAction>(); }
};

class MenuHandle : public WidgetHandle
{
public:
    explicit MenuHandle(QMenu* menu) : WidgetHandle(menu, "Menu") {}
    QMenu& menu() const { return alive<QMenu>(); }
};

class ToolBarHandle : public WidgetHandle
{
public:
    explicit ToolBarHandle(QToolBar* bar) : WidgetHandle(bar, "ToolBar") {}
    QToolBar& bar() const { return alive<QToolBar>(); }
};

class MainWindowHandle : public WidgetHandle
{
public:
    explicit MainWindowHandle(QMainWindow* window) : WidgetHandle(window, "MainWindow") {}
};

class SubWindowHandle : public WidgetHandle
{
public:
    explicit SubWindowHandle(QMdiSubWindow* window) : WidgetHandle(window, "SubWindow") {}
};

class TextEditHandle : public WidgetHandle
{
public:
    explicit TextEditHandle(QTextEdit* edit) : WidgetHandle(edit, "TextEdit") {}
    QTextEdit& edit() const { return alive<QTextEdit>(); }
};

/// A handle on a widget that the script owns until a window takes it over.
template <typename Handle, typename Widget>
std::shared_ptr<Handle> makeOwned()
{
    requireGuiThread();
    auto handle = std::make_shared<Handle>(new Widget);
    handle->setOwned();
    return handle;
}

/// The command that Menu.addAction() and ToolBar.addAction() made, connected and noted as the calling plug-in's.
/// `function` is the name that errors begin with; `place` is where the action goes.
boost::python::object addAction(QWidget& place, const char* function, const boost::python::object& text,
                                const boost::python::object& callable, const boost::python::object& icon);

} // namespace python
