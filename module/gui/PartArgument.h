#pragma once

#include "runtime/Errors.h"

#include <boost/python/object.hpp>

#include <QWidget>

/// Widgets on their way into layouts and containers. A widget is in one place only, and comes out of it with
/// `parentWidget = None` or the place's own method; nothing moves silently.
namespace python {

/// The widget in an argument, see requireWidget(), which may be put into `place` (null: not known yet). Raises
/// ValueError for a widget that is already in a layout or container or that `place` is inside of, RuntimeError for
/// parts of the application.
QWidget& requirePart(const boost::python::object& argument, const QWidget* place, const char* method);
/// The same without the test of the argument. Asked last: what was on the screen is hidden by then, so that no handler
/// runs between these tests and the move.
void requireFree(QWidget& part, const QWidget* place, const char* method);

/// RuntimeError for widgets that the application needs where they are: its main window and everything in it, and the
/// inner parts of other widgets.
void requireMovable(QWidget& widget, const char* method);

/// What requireFree() asks, but for a widget that leaves its place for another one.
void requireMove(QWidget& part, const QWidget* place, const char* method);

/// Hides what goes to a place, as Qt does in the middle of the move. Its handlers run, and may move things themselves.
void leaveScreen(QWidget& part);

/// ValueError when `place` is `part` or inside it, across windows too.
void requireOutside(const QWidget& part, const QWidget* place, const char* method);

/// Gives a widget back to its Python object, without a parent and hidden. RuntimeError, and nothing has changed, while
/// Qt goes through the place that the widget is in.
void handBack(QWidget* widget, const char* method);

} // namespace python
