#include "editor/debugger/CallStack.h"

#include "editor/debugger/CodeMarks.h"
#include "editor/debugger/FrameLayout.h"

namespace debugger {

using FrameRef = python::BasicRef<PyFrameObject>;

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

void CallStack::add(FrameRef frame, int line)
{
    const PyCodeObject* code = strativo_objectCode(frame.get());
    m_calls.push_back({std::move(frame), textOf(code->co_filename), textOf(code->co_name), line});
}

CallStack CallStack::of(PyFrameObject* frame)
{
    CallStack stack;
    for (auto call = FrameRef::borrow(frame); call && stack.m_calls.size() < g_mostCalls;
         call = FrameRef::steal(PyFrame_GetBack(call.get())))
        stack.add(call, PyFrame_GetLineNumber(call.get()));
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
        stack.add(FrameRef::borrow(entry->tb_frame), line);
    }
    std::reverse(stack.m_calls.begin(), stack.m_calls.end());
    return stack;
}

} // namespace debugger
