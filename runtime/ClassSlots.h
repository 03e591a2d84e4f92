#pragma once

#include <boost/python/detail/wrap_python.hpp>

#include <cstddef>

/// Gives a class that the binding layer has made the C functions of a hand-written type. The binding layer's own call
/// path costs 50 to 100 ns a call and 4 to 20 times as much as these; the class stays an ordinary one otherwise:
/// subclasses inherit the functions and a Python override in a subclass wins.
///
/// Functions and definitions have static storage. All of this runs once, at registration, with the interpreter lock.
namespace python {

/// Installs `function` as the special method `name` ("__add__", "__len__", "__getitem__", ...). The function has the C
/// signature of the slot behind the name: binaryfunc for number operations (called for either operand, so it checks
/// both and returns NotImplemented), initproc for "__init__", lenfunc for "__len__", binaryfunc for "__getitem__"
/// (mapping form: any key), objobjargproc for "__setitem__", getiterfunc for "__iter__", reprfunc for "__repr__" and
/// "__str__", richcmpfunc for "__eq__" and "__ne__", objobjproc for "__contains__", setattrofunc for "__setattr__".
/// "__mul__" and "__rmul__" share one slot and need the same function; so do "__setattr__" and "__delattr__".
///
/// In-place arithmetic ("__iadd__", ...) must raise TypeError for a wrong operand and never return NotImplemented: the
/// interpreter puts the function into the sequence form of the slot too and would hand that object to the script.
///
/// No C++ exception may leave a function installed here.
///
/// `documentation` (static storage) is the docstring; without one the interpreter's general text for the name shows.
void installSlot(PyTypeObject* type, const char* name, void* function, const char* documentation = nullptr);

/// A property: `definition.name`, getter, setter (null: read-only) and docstring.
void installProperty(PyTypeObject* type, PyGetSetDef& definition);

/// A method; METH_O and METH_FASTCALL are the fast ones.
void installMethod(PyTypeObject* type, PyMethodDef& definition);

/// The buffer protocol. `release` may be null.
void installBuffer(PyTypeObject* type, getbufferproc get, releasebufferproc release);

/// The sequence slots that iteration helpers and len() use beside the mapping ones. `length` may be null.
void installSequence(PyTypeObject* type, lenfunc length, ssizeargfunc item);

/// A short way for calls of the class itself, `type(...)`; a subclass constructs through its __init__ as ever. The
/// function makes the object for the arguments that it knows and hands everything else to constructOrdinarily().
void installConstructor(PyTypeObject* type, vectorcallfunc construct);

/// Objects of the class itself (not of its subclasses) get their dictionary of attributes when they are made, 64 bytes,
/// instead of with the first attribute. CPython 3.11 looks a method up anew in each call on an object whose dictionary
/// is still to come, and remembers it for objects that have one: 5 ns a call.
void installAttributeDictionary(PyTypeObject* type);

/// The call of a class through __new__ and __init__, with the arguments of a vectorcallfunc.
PyObject* constructOrdinarily(PyObject* type, PyObject* const* arguments, std::size_t count, PyObject* keywordNames);

} // namespace python
