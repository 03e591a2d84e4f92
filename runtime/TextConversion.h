#pragma once

#include <boost/python/detail/wrap_python.hpp>
#include <boost/python/object.hpp>

#include <QString>

/// Host text and Python str.
///
/// str to QString takes every text that has a UTF-8 form. QString to str goes through Latin-1 bytes that are read as
/// UTF-8: ASCII passes unchanged, any other Latin-1 character raises UnicodeDecodeError and characters beyond Latin-1
/// arrive as "?". Scripts rely on this asymmetry. The user can switch it off (TextSetting.h);
/// the error carries a note that says how.
///
/// All functions need the interpreter lock.
namespace python {

/// Registers both directions with the binding layer.
void registerTextConversion();

/// The text of a str; false with the exception pending when it has no UTF-8 form.
bool textFromPython(PyObject* str, QString& text);

/// The way of every host text that a script reads. New reference, or null with UnicodeDecodeError pending.
PyObject* textToPython(const QString& text);
/// The same as an object; unwinds with the exception.
boost::python::object textObject(const QString& text);

/// A str with the whole text whatever the switch says: for what the user tells a script (its arguments, input()) and
/// for the runtime's own use.
boost::python::object unicodeText(const QString& text);

/// A text in the state of a pickled object, as bytes: it is no text that the script reads, and copying must not fail.
boost::python::object textState(const QString& text);
/// Unwinds with TypeError for what textState() has not made.
QString textFromState(const boost::python::object& state);

} // namespace python
