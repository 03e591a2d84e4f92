#pragma once

#include "module/gui/Conversion.h"
#include "module/gui/Guarded.h"
#include "module/gui/HandleInstance.h"
#include "module/gui/WidgetClasses.h"
#include "runtime/ClassSlots.h"

#include <type_traits>

/// Properties of widgets, straight from pairs of Qt functions:
///
///     static PyGetSetDef g_properties[] = {
///         property<&QFrame::lineWidth, &QFrame::setLineWidth>("Frame.lineWidth", "int: Width of the frame's lines."),
///         readOnly<&QFrame::frameWidth>("Frame.frameWidth", "int: Pixels that the frame takes at each side."),
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

template <auto getter>
PyObject* get(PyObject* self, void* /*where*/)
{
    return guarded<>(static_cast<PyObject*>(nullptr), [&] {
        auto& object = handleOf(self).alive<typename Signature<decltype(getter)>::Owner>();
        if constexpr (std::is_member_function_pointer_v<decltype(getter)>)
            return toPython((object.*getter)());
        else
            return toPython(getter(object));
    });
}

template <auto setter>
int set(PyObject* self, PyObject* value, void* where)
{
    return guarded<>(-1, [&] {
        using Types = Signature<decltype(setter)>;
        const auto* name = static_cast<const char*>(where);
        auto& object = handleOf(self).alive<typename Types::Owner>();
        if (!value)
            raise(PyExc_AttributeError, "%s can not be deleted", name);
        auto&& argument = Argument<typename Types::Argument>::from(value, name);
        if constexpr (std::is_member_function_pointer_v<decltype(setter)>)
            (object.*setter)(argument);
        else
            setter(object, argument);
        return 0;
    });
}

/// The part of "Class.member" that scripts write.
constexpr const char* memberOf(const char* where)
{
    while (*where && *where != '.')
        ++where;
    return *where ? where + 1 : where;
}

} // namespace detail

template <auto getter, auto setter>
PyGetSetDef property(const char* where, const char* documentation)
{
    return {detail::memberOf(where), detail::get<getter>, detail::set<setter>, documentation, const_cast<char*>(where)};
}

template <auto getter>
PyGetSetDef readOnly(const char* where, const char* documentation)
{
    return {detail::memberOf(where), detail::get<getter>, nullptr, documentation, const_cast<char*>(where)};
}

/// `definitions` has static storage. The base class of Q is registered.
template <typename Q, std::size_t count>
void installProperties(PyGetSetDef (&definitions)[count])
{
    for (PyGetSetDef& definition : definitions)
        installProperty(classOf<typename HandleOf<Q>::type>(), definition);
}

} // namespace python
