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

/// The widget in an argument. Raises TypeError `none` for None, and `other`, which holds one "%s", for other objects.
struct WidgetTexts
{
    const char* none;
    const char* other;
};
QWidget& requireWidget(const boost::python::object& argument, const WidgetTexts& texts);

/// Of Layout.addWidget(), for every class of layouts.
inline constexpr WidgetTexts g_addWidgetTexts = {
    "Layout.addWidget(), expected type 'Widget' but got 'NoneType' instead",
    "Layout.addWidget(), expected type 'Widget' but got '%s' instead"};

/// The widget in an argument of `method` ("Layout.addWidget()"). Raises TypeError "<method>, expected type 'Widget' but
/// got '...' instead", also for None.
QWidget& requireWidget(const boost::python::object& argument, const char* method);

} // namespace python
