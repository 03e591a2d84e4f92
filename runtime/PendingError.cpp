#include "runtime/PendingError.h"

namespace python {

PyObject* PendingError::value()
{
    if (!std::exchange(m_isMade, true)) {
        PyErr_NormalizeException(&m_type, &m_value, &m_traceback);
        if (m_value && m_traceback)
            PyException_SetTraceback(m_value, m_traceback);
    }
    return m_value;
}

Ref PendingError::attribute(const char* name)
{
    PyObject* error = value();
    Ref found = Ref::steal(error ? PyObject_GetAttrString(error, name) : nullptr);
    if (!found)
        PyErr_Clear();
    return found;
}

void PendingError::drop()
{
    m_isKept = false;
    Py_CLEAR(m_type);
    Py_CLEAR(m_value);
    Py_CLEAR(m_traceback);
}

} // namespace python
