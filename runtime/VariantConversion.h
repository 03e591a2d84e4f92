#pragma once

#include <boost/python/detail/wrap_python.hpp>

class QVariant;

/// Host variants and Python int, bool, float and str.
///
/// bool is an int to Python and arrives as the integers 1 and 0. Every other type raises TypeError. Integers that do
/// not fit 32 bits become 64-bit variants; beyond 64 bits they raise OverflowError.
namespace python {

/// Whether the object is of one of the four types.
bool isVariantType(PyObject* object);

/// Unwinds with TypeError or OverflowError. A str without a UTF-8 form is reported at once and arrives empty.
QVariant variantFromPython(PyObject* object);

/// New reference, or null with the exception pending: TypeError, also for a variant without a value, or that of
/// textToPython().
PyObject* variantToPython(const QVariant& variant);

/// Registers both directions with the binding layer. Needs the interpreter lock.
void registerVariantConversion();

} // namespace python
