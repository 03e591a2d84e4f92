#pragma once

#include "module/Conversion.h"

#include <boost/mpl/vector.hpp>

/// Setters for add_property() of the binding layer's own classes, which would report a wrong type with a C++ signature:
///
///     .add_property("width", &QPen::widthF, checkedSetter("Pen.width", &QPen::setWidthF), "...")
///
/// The type is tested as Conversion.h does, with its text.
namespace python {

namespace detail {

template <typename Owner, typename Value, typename Set>
boost::python::object makeCheckedSetter(const char* where, Set set)
{
    const auto setter = [where, set](Owner& self, const boost::python::object& value) {
        std::invoke(set, self, Argument<std::decay_t<Value>>::from(value.ptr(), where));
    };
    return boost::python::make_function(setter, boost::python::default_call_policies(),
                                        boost::mpl::vector<void, Owner&, const boost::python::object&>());
}

} // namespace detail

/// `where` is the class and the member and stays where it is.
template <typename Owner, typename Value>
boost::python::object checkedSetter(const char* where, void (Owner::*set)(Value))
{
    return detail::makeCheckedSetter<Owner, Value>(where, set);
}
template <typename Owner, typename Value>
boost::python::object checkedSetter(const char* where, void (*set)(Owner&, Value))
{
    return detail::makeCheckedSetter<Owner, Value>(where, set);
}

} // namespace python
