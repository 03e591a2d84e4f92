#pragma once

#include "module/gui/LayoutHandle.h"

#include <boost/python/object.hpp>

#include <QWidget>

class QLabel;

/// What goes into layouts, and layouts into widgets. Qt makes the widgets of a layout children of the widget that the
/// layout is in; as long as there is none, the layout itself keeps what scripts put into it, and forgets what dies
/// meanwhile.
namespace python {

/// Whether the widget is in a layout, in a window or not.
bool isInLayout(QWidget& widget);

/// To be called when a widget has been put into `layout`; `object` is its Python object.
void joinWidget(QLayout& layout, QWidget& widget, const boost::python::object& object);
/// The same for a layout that has been put into `outer`.
void joinLayout(QLayout& outer, QLayout& inner);
/// To be called when a widget has been taken out of `layout`.
void leaveLayout(QLayout& layout, QWidget& widget, const char* method);

/// The layout in an argument of `method`, which may be put into `outer`. Raises TypeError, for example
/// "Layout.addLayout(), expected 'Layout' but got 'NoneType' instead", ValueError for one that is already in a widget
/// or layout or that would be inside itself.
QLayout& requireInnerLayout(const boost::python::object& argument, const QLayout& outer, const char* method);

/// A label that Qt owns as soon as the layout is in a window, and the layout until then.
QLabel* makeLabel(QLayout& layout, const QString& text);

/// A layout as property of a widget: None for widgets without one and for those that the application arranges.
boost::python::object widgetLayout(QWidget& widget);
/// `method` is what messages begin with. Raises TypeError for what is no layout, ValueError for one that is in use or
/// that the widget is in, RuntimeError for a widget that already has a layout or arranges its parts itself.
void setWidgetLayout(QWidget& widget, const boost::python::object& layout, const char* method);

/// The Python object of a layout; None for null and for layouts of the application.
boost::python::object layoutObject(QLayout* layout);

} // namespace python
