#pragma once

#include <boost/python/object.hpp>
#include <boost/python/tuple.hpp>

namespace python {

/// Pickling and copying of objects whose class has __setstate__, for subclasses with other constructors and with
/// attributes of their own, too: an object without content is made and __setstate__ gives it its content.

/// What __reduce__ returns: `values` and the object's attributes become the state.
boost::python::object reduction(const boost::python::object& self, const boost::python::tuple& values);

/// For __setstate__: gives `self` its attributes back and returns the values. Raises TypeError for anything but a state
/// of `count` values.
boost::python::tuple restoredValues(const boost::python::object& self, const boost::python::object& state, long count);

} // namespace python
