#include "runtime/ExitStatus.h"

#include "runtime/Ref.h"
#include "runtime/StreamCaptureBinding.h"

namespace python {

int exitStatus(PyObject* exception, bool prints)
{
    const Ref held = Ref::steal(exception ? PyObject_GetAttrString(exception, "code") : nullptr);
    PyObject* code = held.get();
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
    return status;
}

} // namespace python
