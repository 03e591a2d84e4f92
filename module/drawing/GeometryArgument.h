#pragma once

#include <boost/python/object.hpp>

#include <QPoint>
#include <QRect>
#include <QSize>

/// Points and sizes as arguments and results. A Point, PointF or Size can be given as the object, or as a tuple or list
/// of its two numbers; a PointF also as a Point. Numbers of Point and Size are ints of 32 bits, which a float never
/// becomes by itself.
///
/// After registerGeometryArguments() the binding layer's own functions and properties with QPoint, QPointF and QSize
/// parameters take the same. These are for functions with messages of their own. All need the interpreter lock.
namespace python {

enum class Reading
{
    Done,
    OtherType, ///< no error is set
    Failed,    ///< of the right type but out of range; OverflowError is pending
};

Reading read(PyObject* argument, int& value);
Reading read(PyObject* argument, double& value);
Reading read(PyObject* argument, QPoint& value);
Reading read(PyObject* argument, QPointF& value);
Reading read(PyObject* argument, QSize& value);

/// The argument as a T (one of the above); anything else is a TypeError whose `format` holds one "%s" for the type's
/// name. Unwinds to the calling script.
template <typename T>
T geometryArgument(const boost::python::object& argument, const char* format);

/// For C functions: false with the error pending, whose text is "`member`, expected '`wanted`' but got '...'". A null
/// argument is the deletion of an attribute, which is refused.
template <typename T>
bool readMember(PyObject* argument, T& value, const char* member, const char* wanted);

/// A new Point, Size or Rectangle. Functions of this library and no templates: what a ValueInstance knows of its class
/// is known in the library that registers the class only.
PyObject* toPython(const QPoint& point);
PyObject* toPython(const QSize& size);
PyObject* toPython(const QRect& rectangle);

/// Called once, after the classes are registered.
void registerGeometryArguments();

} // namespace python
