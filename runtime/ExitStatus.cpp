#include "runtime/ExitStatus.h"

#include "runtime/StreamCaptureBinding.h"

namespace python {

int exitStatus(PyObject* exception, bool prints)
{
    PyObject* code = exception ? PyObject_GetAttrString(exception, "code") : nullptr;
    PyErr_Clear();
    int status = 1;
    if (code == Py_None) {
        status = 0;
    } else if (code && PyLong_Check(code)) {
        status = static_cast<int>(PyLong_AsLong(code)); // -1 for one that is too large
        PyErr_Clear();
    } else if (prints) {
        restoreLostStreams();
        PyObject* errors = PySys_GetObject("stderr");
        PyObject* text = code ? code : exception;
        if (errors && text && PyFile_WriteObject(text, errors, Py_PRINT_RAW) < 0)
            PyErr_Clear();
        PySys_WriteStderr("\n");
    }
    Py_XDECREF(code);
    return status;
}

} // namespace python
