#pragma once

/// What the interpreter keeps to itself about running frames. Its own header for that is C only, so these accessors
/// are compiled as C, apart from the rest. References are borrowed; all need the interpreter lock.

#ifdef __cplusplus
#include <boost/python/detail/wrap_python.hpp>
extern "C" {
#else
#include <Python.h>
#endif

struct _PyInterpreterFrame;

PyCodeObject* strativo_frameCode(const struct _PyInterpreterFrame* frame);

/// Null while nothing has asked for a frame object.
PyFrameObject* strativo_frameObject(const struct _PyInterpreterFrame* frame);

/// The caller, when the same evaluation loop runs it; otherwise null.
struct _PyInterpreterFrame* strativo_callerInLoop(const struct _PyInterpreterFrame* frame);

/// Keeps the interpreter from inlining calls of the frame's function where it subscripts (`__getitem__`), which it does
/// past the evaluation hook: caches for that hold versions of functions in 16 bits, so a higher one is never cached.
void strativo_forbidInlining(const struct _PyInterpreterFrame* frame);

/// As PyFrame_GetCode(), which would return a new reference.
PyCodeObject* strativo_objectCode(const PyFrameObject* frame);

#ifdef __cplusplus
}
#endif
