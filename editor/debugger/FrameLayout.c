/* The only code that knows the layout of CPython 3.11's running frames. With every new version of Python each function
 * is to be held against Include/internal/pycore_frame.h and Python/ceval.c:
 *
 *   f_code, frame_obj     the code object, and the frame object if anything has asked for one
 *   is_entry, previous    a frame that began an evaluation loop has its caller in another one
 *   func_version          BINARY_SUBSCR_GETITEM calls a function without the evaluation hook when its version is the
 * one that its cache holds, in 16 bits; versions the interpreter gives count up from 1
 *
 * tests/editor/debugger fails where breakpoints are missed. */
#define Py_BUILD_CORE 1
#include "editor/debugger/FrameLayout.h"

#include <internal/pycore_frame.h>

PyCodeObject* strativo_frameCode(const struct _PyInterpreterFrame* frame)
{
    return frame->f_code;
}

PyFrameObject* strativo_frameObject(const struct _PyInterpreterFrame* frame)
{
    return frame->frame_obj;
}

struct _PyInterpreterFrame* strativo_callerInLoop(const struct _PyInterpreterFrame* frame)
{
    return frame->is_entry ? NULL : frame->previous;
}

void strativo_forbidInlining(const struct _PyInterpreterFrame* frame)
{
    static uint32_t nextVersion = 0x80000000U;
    PyFunctionObject* function = frame->f_func;
    if (function && function->func_version <= UINT16_MAX)
        function->func_version = nextVersion++;
}

PyCodeObject* strativo_objectCode(const PyFrameObject* frame)
{
    return frame->f_frame->f_code;
}
