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

PyCodeObject* strativo_objectCode(const PyFrameObject* frame)
{
    return frame->f_frame->f_code;
}
