#include "module/Bindings.h"
#include "module/gui/Construction.h"
#include "module/gui/LayoutParts.h"
#include "module/gui/PartArgument.h"
#include "module/gui/Property.h"
#include "module/gui/Widgets.h"
#include "plugins/PluginContext.h"
#include "runtime/Errors.h"

#include <QFont>

namespace bp = boost::python;

namespace python {

namespace {

using QWidgetIndirect = Indirect<QWidget>;
using PyWidget = Wrapper<QWidgetIndirect>;

constexpr ConstructorArguments g_arguments = {{"parent", "parentWidget"}};

/// A window of a plug-in goes with the plug-in. Those of the application are no plug-in's.
void setVisible(QWidget& self, bool visible)
{
    if (visible && self.isWindow() && dynamic_cast<WidgetPeer*>(&self))
        noteContribution(&self);
    self.setVisible(visible);
}

void setWidth(QWidget& self, int width)
{
    self.resize(width, self.height());
}

void setHeight(QWidget& self, int height)
{
    self.resize(self.width(), height);
}

bp::object parentWidget(QWidget& self)
{
    return wrapWidget(self.parentWidget());
}

void setParentWidget(QWidget& self, const bp::object& value)
{
    constexpr const char* where = "Widget.parentWidget";
    QWidget* parent =
        value.is_none() ? nullptr : &requireWidget(value, where, "%s, expected 'Widget' but got '%s' instead");
    if (parent == self.parentWidget())
        return;
    requireMove(self, parent, where);
    handBack(&self, where);
    // Dialogs and menus stay windows of their own, above the parent.
    const Qt::WindowFlags kind = self.windowFlags() & Qt::WindowType_Mask;
    const bool staysWindow = kind == Qt::Dialog || kind == Qt::Popup;
    if (parent)
        self.setParent(parent, staysWindow ? self.windowFlags() : self.windowFlags() & ~Qt::WindowType_Mask);
}

void setLayoutProperty(QWidget& self, const bp::object& value)
{
    setWidgetLayout(self, value, "Widget.layout");
}

void setLayout(const WidgetHandle& handle, const bp::object& layout)
{
    setWidgetLayout(handle.widget(), layout, "Widget.setLayout()");
}

PyGetSetDef g_properties[] = {
    property<&QWidget::width, setWidth>("width", "int: Width in pixels."),
    property<&QWidget::height, setHeight>("height", "int: Height in pixels."),
    property<&QWidget::acceptDrops, &QWidget::setAcceptDrops>(
        "acceptDrops", "bool: Whether something can be dropped here; see dragEnterEvent() and dropEvent()."),
    property<&QWidget::windowTitle, &QWidget::setWindowTitle>("windowTitle",
                                                              "str: The text in the title bar or the tab."),
    property<&QWidget::isEnabled, &QWidget::setEnabled>("enabled", "bool: Whether the user can use the widget."),
    property<&QWidget::isVisible, setVisible>(
        "visible", "bool: Whether the widget is shown. A part of a window is not visible before the window is."),
    property<&QWidget::whatsThis, &QWidget::setWhatsThis>("helpText",
                                                          "str: The longer explanation that Shift+F1 shows."),
    property<&QWidget::toolTip, &QWidget::setToolTip>("toolTip", "str: The text that appears under the mouse."),
    property<&QWidget::styleSheet, &QWidget::setStyleSheet>(
        "styleSheet", "str: Colours, borders and the like in Qt's style-sheet language; the classes there have "
                      "Qt's names."),
    property<parentWidget, setParentWidget>("parentWidget",
                                            "Widget | None: The widget that this one is in. It keeps this one alive."),
    property<widgetLayout, setLayoutProperty>(
        "layout", "Layout | None: What arranges the widgets in this one. It can be set once."),
    property<&QWidget::font, &QWidget::setFont>(
        "font", "Font: The font. Reading gives a copy; assign it to change the widget."),
    property<&QWidget::hasMouseTracking, &QWidget::setMouseTracking>(
        "mouseTracking", "bool: Whether mouseMoveEvent() is also called when no button is held down."),
};

/// Sizes come as one Size or as width and height.
QSize requireSize(const bp::object& width, const bp::object& height, const char* method)
{
    if (height.is_none())
        return Argument<QSize>::from(width.ptr(), method);
    return {Argument<int>::from(width.ptr(), method), Argument<int>::from(height.ptr(), method)};
}

template <void (QWidget::*setter)(const QSize&)>
struct SetSize
{
    const char* method;
    void operator()(const WidgetHandle& handle, const bp::object& width, const bp::object& height) const
    {
        QWidget& widget = handle.widget();
        const QSize size = requireSize(width, height, method);
        if (size.width() < 0 || size.height() < 0)
            raise(PyExc_ValueError, "%s, a size can not be negative", method);
        (widget.*setter)(size);
    }
};

template <QPoint (QWidget::*map)(const QPoint&) const>
struct MapPosition
{
    const char* method;
    QPoint operator()(const WidgetHandle& handle, const bp::object& position) const
    {
        return (handle.widget().*map)(Argument<QPoint>::from(position.ptr(), method));
    }
};

void show(const WidgetHandle& handle)
{
    setVisible(handle.widget(), true);
}

void setFocus(const WidgetHandle& handle)
{
    handle.widget().setFocus(Qt::OtherFocusReason);
}

void activate(const WidgetHandle& handle)
{
    QWidget* window = handle.widget().window();
    window->raise();
    window->activateWindow();
}

void hide(const WidgetHandle& handle)
{
    handle.widget().hide();
}

bool close(const WidgetHandle& handle)
{
    return handle.widget().close();
}

void move(const WidgetHandle& handle, const bp::object& x, const bp::object& y)
{
    constexpr const char* method = "Widget.move()";
    handle.widget().move(y.is_none()
                             ? Argument<QPoint>::from(x.ptr(), method)
                             : QPoint(Argument<int>::from(x.ptr(), method), Argument<int>::from(y.ptr(), method)));
}

template <typename Class, typename Function>
void defineSizeSetter(Class& registered, const char* name, Function function, const char* documentation)
{
    registered.def(name,
                   bp::make_function(function, bp::default_call_policies(),
                                     (bp::arg("self"), bp::arg("width"), bp::arg("height") = bp::object()),
                                     boost::mpl::vector4<void, const WidgetHandle&, bp::object, bp::object>()),
                   documentation);
}

template <typename Class, typename Function>
void defineMap(Class& registered, const char* name, Function function, const char* documentation)
{
    registered.def(name,
                   bp::make_function(function, bp::default_call_policies(), bp::args("self", "position"),
                                     boost::mpl::vector3<QPoint, const WidgetHandle&, bp::object>()),
                   documentation);
}

/// Null for anything but a widget.
const WidgetHandle* handleIn(const bp::object& argument)
{
    const bp::extract<const WidgetHandle&> handle(argument);
    return handle.check() ? &handle() : nullptr;
}

} // namespace

QWidget& requireWidget(const bp::object& argument, const WidgetTexts& texts)
{
    const WidgetHandle* handle = handleIn(argument);
    if (!handle)
        raise(PyExc_TypeError, argument.is_none() ? texts.none : texts.other, typeName(argument));
    return handle->widget();
}

QWidget& requireWidget(const bp::object& argument, const char* where, const char* format)
{
    const WidgetHandle* handle = handleIn(argument);
    if (!handle)
        raise(PyExc_TypeError, format, where, typeName(argument));
    return handle->widget();
}

void bindWidget()
{
    bp::class_<WidgetHandle, bp::bases<ObjectHandle>, boost::noncopyable> base(
        "_QWidget", "What all windows and parts of windows have in common.", bp::no_init);
    base.def(
            "show", show, bp::args("self"),
            "show() -> None\n\nShows the widget. A window without a parent stays until it is closed, though the script "
            "keeps no name of it.")
        .def("setFocus", setFocus, bp::args("self"),
             "setFocus() -> None\n\nLets the widget take what is typed, as soon as its window is the active one.")
        .def("activate", activate, bp::args("self"), "activate() -> None\n\nBrings the widget's window to the front.")
        .def("hide", hide, bp::args("self"), "hide() -> None\n\nHides the widget.")
        .def("close", close, bp::args("self"),
             "close() -> bool\n\nCloses the window; False when it refused, for example over unsaved changes.")
        .def("setLayout", setLayout, bp::args("self", "layout"),
             "setLayout(layout: Layout) -> None\n\nLets the layout arrange this widget, which the widgets in it become "
             "parts of.\n\nRaises TypeError for what is no layout, RuntimeError when there already is one, ValueError "
             "for a layout that is in use.")
        .def(
            "move", move, (bp::arg("self"), bp::arg("x"), bp::arg("y") = bp::object()),
            "move(x: int | Point, y: int = None) -> None\n\nMoves the upper left corner, in pixels of the parent or of "
            "the screen.");
    defineSizeSetter(
        base, "setMinimumSize", SetSize<&QWidget::setMinimumSize>{"Widget.setMinimumSize()"},
        "setMinimumSize(width: int | Size, height: int = None) -> None\n\nThe widget never gets smaller, in "
        "pixels.");
    defineSizeSetter(
        base, "setMaximumSize", SetSize<&QWidget::setMaximumSize>{"Widget.setMaximumSize()"},
        "setMaximumSize(width: int | Size, height: int = None) -> None\n\nThe widget never gets larger, in "
        "pixels.");
    defineSizeSetter(base, "setFixedSize", SetSize<&QWidget::setFixedSize>{"Widget.setFixedSize()"},
                     "setFixedSize(width: int | Size, height: int = None) -> None\n\nThe widget keeps this size, in "
                     "pixels.");
    defineMap(base, "toGlobalPosition", MapPosition<&QWidget::mapToGlobal>{"Widget.toGlobalPosition()"},
              "toGlobalPosition(position: Point) -> Point\n\nThe place on the screen of a place in the widget.");
    defineMap(base, "fromGlobalPosition", MapPosition<&QWidget::mapFromGlobal>{"Widget.fromGlobalPosition()"},
              "fromGlobalPosition(position: Point) -> Point\n\nThe place in the widget of a place on the screen.");
    defineMap(base, "toParentPosition", MapPosition<&QWidget::mapToParent>{"Widget.toParentPosition()"},
              "toParentPosition(position: Point) -> Point\n\nThe place in the parent of a place in the widget.");
    defineMap(base, "fromParentPosition", MapPosition<&QWidget::mapFromParent>{"Widget.fromParentPosition()"},
              "fromParentPosition(position: Point) -> Point\n\nThe place in the widget of a place in the parent.");
    installProperties<QWidget>(g_properties);
    installHandlers(classOf<WidgetHandle>());

    bindPublic<QWidget>("Widget",
                        "Widget(parent: Widget = None, **properties)\n\nAn empty widget, to put others into or "
                        "to derive from.");
    bindConstructor<PyWidget, g_arguments>("__init__(parent: Widget = None, **properties) -> None\n\nProperties go by "
                                           "name, as in Widget(toolTip='...').");
}

} // namespace python
