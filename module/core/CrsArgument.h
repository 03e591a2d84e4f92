#pragma once

#include "host/georef/Crs.h"
#include "runtime/Errors.h"

#include <boost/python.hpp>

namespace python {

/// A reference system where scripts may give one or None; TypeError with `where`, the class and member, otherwise.
inline georef::Crs crsOrNone(const boost::python::object& value, const char* where)
{
    if (value.is_none())
        return {};
    const boost::python::extract<const georef::Crs&> crs(value);
    if (!crs.check())
        raise(PyExc_TypeError, "%s, expected 'Crs' or 'NoneType' but got '%s'", where, typeName(value));
    return crs();
}

/// The other way: None for the null system.
inline boost::python::object crsObject(const georef::Crs& crs)
{
    return crs.isNull() ? boost::python::object() : boost::python::object(crs);
}

} // namespace python
