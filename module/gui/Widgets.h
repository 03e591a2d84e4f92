#pragma once

#include "module/gui/WidgetClasses.h"

#include <QAction>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenu>
#include <QToolBar>

/// The classes of handles that other families name.
namespace python {

using MainWindowHandle = PublicHandle<QMainWindow>;
using MenuHandle = PublicHandle<QMenu>;
using SubWindowHandle = PublicHandle<QMdiSubWindow>;
using ToolBarHandle = PublicHandle<QToolBar>;

class ActionHandle : public ObjectHandle
{
public:
    explicit ActionHandle(QAction* action) : ObjectHandle(action, "Action") {}
    QAction& action() const { return alive<QAction>(); }
};

/// The command that Menu.addAction() and ToolBar.addAction() made, connected and noted as the calling plug-in's.
/// `function` is the name that errors begin with ("Menu.addAction()", static storage); `place` is where the action
/// goes.
boost::python::object addAction(QWidget& place, const char* function, const boost::python::object& text,
                                const boost::python::object& callable, const boost::python::object& icon);

/// Keeps the Python object of `menu` for as long as `owner`, which shows the menu but is not its parent.
void holdMenu(QObject& owner, const boost::python::object& menu);
/// The same for an owner of one menu or none (None): others are let go of, which may run code of scripts.
void holdOnlyMenu(QObject& owner, const boost::python::object& menu);

/// The widget in an argument. Everything else, None too, is a TypeError whose `format` holds one "%s" for `where`, the
/// method or property ("Layout.addWidget()"), and another one for the type's name.
QWidget& requireWidget(const boost::python::object& argument, const char* where,
                       const char* format = "%s, expected type 'Widget' but got '%s' instead");

/// Messages that are written out where they belong; `other` holds one "%s" for the type's name.
struct WidgetTexts
{
    const char* none;
    const char* other;
};
QWidget& requireWidget(const boost::python::object& argument, const WidgetTexts& texts);

} // namespace python
