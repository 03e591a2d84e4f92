#include "editor/debugger/CallStack.h"

#include "editor/debugger/CodeMarks.h"
#include "editor/debugger/FrameLayout.h"
#include "runtime/Ref.h"

namespace debugger {

namespace {

/// A runaway recursion need not be shown to its end.
constexpr std::size_t g_mostCalls = 2000;

QString textOf(PyObject* str)
{
    const char* utf8 = PyUnicode_AsUTF8(str);
    if (!utf8)
        PyErr_Clear();
    return QString::fromUtf8(utf8 ? utf8 : "?");
}

} // namespace

CallStack::~CallStack()
{
    for (const Call& call : m_calls)
        Py_DECREF(call.frame);
}

void CallStack::add(PyFrameObject* newReference, int line)
{
    PyCodeObject* code = strativo_objectCode(newReference);
    m_calls.push_back({newReference, textOf(code->co_filename), textOf(code->co_name), line});
}

CallStack CallStack::of(PyFrameObject* frame)
{
    CallStack stack;
    Py_INCREF(frame);
    while (frame && stack.m_calls.size() < g_mostCalls) {
        stack.add(frame, PyFrame_GetLineNumber(frame));
        frame = PyFrame_GetBack(frame);
    }
    Py_XDECREF(frame);
    return stack;
}

CallStack CallStack::ofTraceback(PyObject* traceback)
{
    CallStack stack;
    for (auto* entry = reinterpret_cast<PyTracebackObject*>(traceback); entry && stack.m_calls.size() < g_mostCalls;
         entry = entry->tb_next) {
        // The field is filled lazily, so it is read as an attribute.
        const python::Ref number =
            python::Ref::steal(PyObject_GetAttrString(reinterpret_cast<PyObject*>(entry), "tb_lineno"));
        const int line = number ? static_cast<int>(PyLong_AsLong(number.get())) : -1;
        PyErr_Clear();
        Py_INCREF(entry->tb_frame);
        stack.add(entry->tb_frame, line);
    }
    std::reverse(stack.m_calls.begin(), stack.m_calls.end());
    return stack;
}

} // namespace debugger
