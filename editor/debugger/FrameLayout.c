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
