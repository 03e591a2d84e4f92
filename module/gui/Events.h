#pragma once

#include <boost/python/detail/wrap_python.hpp>

class QEvent;

/// Events as handlers written in Python receive them. Qt owns the event and reuses its memory, so the Python object is
/// cut off from it when the handler has returned: using it later raises RuntimeError. All functions need the
/// interpreter lock.
namespace python {

/// New reference to an object of the matching class; null with the exception pending.
PyObject* wrapEvent(QEvent& event);
/// The event inside an object, null for objects of other classes. Raises RuntimeError when the event is over.
QEvent* eventOf(PyObject* object);
/// Cuts an object that wrapEvent() made off from its event.
void endEvent(PyObject* object);

} // namespace python
