#pragma once

#include "module/gui/ObjectHandle.h"

#include <boost/python.hpp>

#include <memory>

/// The way between Python objects of this family and the handles inside them.
namespace python {

/// The handle inside an object of a class of this family. Raises RuntimeError when a subclass never called
/// super().__init__().
ObjectHandle& handleOf(PyObject* self);
/// The same, null instead of an exception; null also for objects of other classes.
ObjectHandle* handleOrNull(PyObject* object);

/// Gives an object that __init__ is called for its handle, and makes it known as the object of what the handle points
/// at. RuntimeError when it already has one.
void installHandle(PyObject* self, const std::shared_ptr<ObjectHandle>& handle);

/// A new object of `type` with this handle.
boost::python::object makeInstance(PyTypeObject* type, const std::shared_ptr<ObjectHandle>& handle);

/// Lets objects of `type`, and of the classes derived from it later, have room for their handle. Called once. The
/// binding layer's own way asks each class for a number, and makes and drops an exception where there is none.
void reserveHandle(PyTypeObject* type);

/// The Python class that is registered for a class of handles.
template <typename HandleType>
PyTypeObject* classOf()
{
    return boost::python::converter::registered<HandleType>::converters.get_class_object();
}

/// The Python object of a Qt object, None for null.
template <typename HandleType, typename Object>
boost::python::object wrapObject(Object* object)
{
    namespace bp = boost::python;
    if (!object)
        return {};
    if (PyObject* self = ObjectHandle::known(object))
        return bp::object(bp::handle<>(bp::borrowed(self)));
    return makeInstance(classOf<HandleType>(), std::make_shared<HandleType>(object));
}

} // namespace python
