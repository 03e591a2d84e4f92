#pragma once

#include "module/gui/HandleInstance.h"
#include "module/gui/WidgetHandle.h"

#include <boost/python.hpp>

#include <QAbstractScrollArea>
#include <QAbstractSpinBox>

#include <type_traits>

class HVObjectComboBox;
class HVSwitch;
class QAbstractButton;
class QAbstractSlider;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QScrollArea;
class QSlider;
class QSpinBox;
class QSplitter;
class QStackedWidget;
class QTextEdit;

/// The classes of handles, which mirror those of Qt, and their registration.
///
/// Each kind of widget has two Python classes: a base with the members, which scripts can not create, and the public
/// class derived from it, which they can create and derive from.
namespace python {

/// The class whose members a widget class has beside its own; QWidget unless the chain is longer.
template <typename Q>
struct BaseWidget
{
    using type = QWidget;
};
template <>
struct BaseWidget<QAbstractScrollArea>
{
    using type = QFrame;
};
template <>
struct BaseWidget<QScrollArea>
{
    using type = QAbstractScrollArea;
};
template <>
struct BaseWidget<QTextEdit>
{
    using type = QAbstractScrollArea;
};
template <>
struct BaseWidget<QLabel>
{
    using type = QFrame;
};
template <>
struct BaseWidget<QStackedWidget>
{
    using type = QFrame;
};
template <>
struct BaseWidget<QSplitter>
{
    using type = QFrame;
};
template <>
struct BaseWidget<QPushButton>
{
    using type = QAbstractButton;
};
template <>
struct BaseWidget<QCheckBox>
{
    using type = QAbstractButton;
};
template <>
struct BaseWidget<QRadioButton>
{
    using type = QAbstractButton;
};
template <>
struct BaseWidget<QSpinBox>
{
    using type = QAbstractSpinBox;
};
template <>
struct BaseWidget<QDoubleSpinBox>
{
    using type = QAbstractSpinBox;
};
template <>
struct BaseWidget<QSlider>
{
    using type = QAbstractSlider;
};

template <>
struct BaseWidget<HVSwitch>
{
    using type = QAbstractButton;
};
template <>
struct BaseWidget<HVObjectComboBox>
{
    using type = QComboBox;
};

template <typename Q>
class Handle;

template <typename Q>
struct HandleOf
{
    using type = Handle<Q>;
};
template <>
struct HandleOf<QWidget>
{
    using type = WidgetHandle;
};

/// The handle of a base class, for example Handle<QFrame> of `_QFrame`.
template <typename Q>
class Handle : public HandleOf<typename BaseWidget<Q>::type>::type
{
public:
    Handle(Q* widget, const char* className) : HandleOf<typename BaseWidget<Q>::type>::type(widget, className) {}
    Q& get() const { return this->template alive<Q>(); }
};

/// The handle of a public class, for example PublicHandle<QFrame> of `Frame`; also for widgets that the application
/// made.
template <typename Q>
class PublicHandle : public HandleOf<Q>::type
{
public:
    explicit PublicHandle(Q* widget) : HandleOf<Q>::type(widget, s_className) {}

    static inline const char* s_className = "Widget"; // set at registration
};

/// The Python object of a widget, whoever made it, in the most derived public class that fits; None for null.
boost::python::object wrapWidget(QWidget* widget);

/// Lets wrapWidget() choose `wrap` for widgets of the class. Later registrations of derived classes win.
void registerWrapping(const QMetaObject& widgetClass, boost::python::object (*wrap)(QWidget* widget));

/// Registers the base class of a kind of widget. `name` begins with an underscore.
template <typename Q>
auto bindBase(const char* name, const char* documentation)
{
    namespace bp = boost::python;
    using Base = typename HandleOf<typename BaseWidget<Q>::type>::type;
    return bp::class_<typename HandleOf<Q>::type, bp::bases<Base>, boost::noncopyable>(name, documentation,
                                                                                       bp::no_init);
}

/// Registers the public class of a kind of widget, whose base class is registered. Without bindConstructor() (see
/// Construction.h) only the application makes its objects.
template <typename Q>
auto bindPublic(const char* name, const char* documentation)
{
    namespace bp = boost::python;
    PublicHandle<Q>::s_className = name;
    registerWrapping(Q::staticMetaObject,
                     [](QWidget* widget) { return wrapObject<PublicHandle<Q>>(static_cast<Q*>(widget)); });
    return bp::class_<PublicHandle<Q>, bp::bases<typename HandleOf<Q>::type>, boost::noncopyable>(name, documentation,
                                                                                                  bp::no_init);
}

} // namespace python
