#pragma once

#include <boost/python/detail/wrap_python.hpp>

#include <QString>

/// Host text and Python str.
///
/// str to QString takes every text that has a UTF-8 form. QString to str goes through Latin-1 bytes that are read as
/// UTF-8: ASCII passes unchanged, any other Latin-1 character raises UnicodeDecodeError and characters beyond Latin-1
/// arrive as "?". Scripts rely on this asymmetry; text that must arrive whole is returned by unicodeText().
namespace python {

/// Registers both directions with the binding layer. Needs the interpreter lock.
void registerTextConversion();

/// The text of a str; false with the exception pending when it has no UTF-8 form.
bool textFromPython(PyObject* str, QString& text);

/// New reference, or null with UnicodeDecodeError pending.
PyObject* textToPython(const QString& text);

} // namespace python
