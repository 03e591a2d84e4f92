#pragma once

#include "module/gui/Conversion.h"
#include "module/gui/Events.h"
#include "module/gui/Guarded.h"
#include "module/gui/HandleInstance.h"
#include "module/gui/WidgetClasses.h"
#include "runtime/ClassSlots.h"

#include <QEvent>
#include <QVarLengthArray>

#include <cstring>
#include <type_traits>

/// Properties of widgets and events, straight from Qt's functions:
///
///     static PyGetSetDef g_properties[] = {
///         property<&QFrame::lineWidth, &QFrame::setLineWidth>("lineWidth", "int: Width of the frame's lines."),
///         readOnly<&QFrame::frameWidth>("frameWidth", "int: Pixels that the frame takes at each side."),
///     };
///     installProperties<QFrame>(g_properties);
///
/// In place of a member function, a free function stands that takes the Qt object by reference first, for getters as
/// for setters. A setter may raise; the object is then as it was.
namespace python {

namespace detail {

template <typename Function>
struct Signature;
template <typename Object, typename Result>
struct Signature<Result (Object::*)() const>
{
    using Owner = Object;
};
template <typename Object, typename Value>
struct Signature<void (Object::*)(Value)>
{
    using Owner = Object;
    using Argument = std::decay_t<Value>;
};
template <typename Object, typename Result>
struct Signature<Result (*)(Object&)>
{
    using Owner = std::remove_const_t<Object>;
};
template <typename Object, typename Value>
struct Signature<void (*)(Object&, Value)>
{
    using Owner = Object;
    using Argument = std::decay_t<Value>;
};

/// What an object of the class that the property is installed in stands for; RuntimeError when it is gone.
template <typename Owner>
Owner& ownerOf(PyObject* self)
{
    if constexpr (std::is_base_of_v<QEvent, Owner>)
        return static_cast<Owner&>(*eventOf(self));
    else
        return handleOf(self).alive<Owner>();
}

template <auto getter>
PyObject* get(PyObject* self, void* /*member*/)
{
    return guarded<>(static_cast<PyObject*>(nullptr), [&] {
        auto& object = ownerOf<typename Signature<decltype(getter)>::Owner>(self);
        if constexpr (std::is_member_function_pointer_v<decltype(getter)>)
            return toPython((object.*getter)());
        else
            return toPython(getter(object));
    });
}

/// "Frame.lineWidth", without an allocation: every assignment makes one, and those inside a conversion another.
class PropertyName
{
public:
    PropertyName(const char* className, const char* member)
    {
        m_text.append(className, static_cast<int>(std::strlen(className)));
        m_text.append('.');
        m_text.append(member, static_cast<int>(std::strlen(member)) + 1);
    }
    const char* text() const { return m_text.constData(); }

private:
    QVarLengthArray<char, 96> m_text;
};

template <auto setter>
int set(PyObject* self, PyObject* value, void* member)
{
    return guarded<>(-1, [&] {
        using Types = Signature<decltype(setter)>;
        const ObjectHandle& handle = handleOf(self);
        auto& object = handle.alive<typename Types::Owner>();
        const PropertyName where(handle.className(), static_cast<const char*>(member));
        if (!value)
            raise(PyExc_AttributeError, "%s can not be deleted", where.text());
        auto&& argument = Argument<typename Types::Argument>::from(value, where.text());
        if constexpr (std::is_member_function_pointer_v<decltype(setter)>)
            (object.*setter)(argument);
        else
            setter(object, argument);
        return 0;
    });
}

} // namespace detail

template <auto getter, auto setter>
PyGetSetDef property(const char* name, const char* documentation)
{
    return {name, detail::get<getter>, detail::set<setter>, documentation, const_cast<char*>(name)};
}

template <auto getter>
PyGetSetDef readOnly(const char* name, const char* documentation)
{
    return {name, detail::get<getter>, nullptr, documentation, nullptr};
}

/// `definitions` has static storage. The base class of Q is registered.
template <typename Q, std::size_t count>
void installProperties(PyGetSetDef (&definitions)[count])
{
    for (PyGetSetDef& definition : definitions)
        installProperty(classOf<typename HandleOf<Q>::type>(), definition);
}

} // namespace python
