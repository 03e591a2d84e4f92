#include "editor/debugger/Condition.h"

namespace debugger {

namespace {

/// New reference, or null with the exception pending. A condition in a loop is compiled once.
PyObject* compiled(const QString& expression)
{
    static QString lastExpression;
    static PyObject* lastCode = nullptr; // outlives the interpreter by design: one small object
    if (lastCode && lastExpression == expression) {
        Py_INCREF(lastCode);
        return lastCode;
    }
    PyObject* code = Py_CompileString(expression.toUtf8().constData(), "<condition>", Py_eval_input);
    if (!code)
        return nullptr;
    Py_INCREF(code);
    Py_XDECREF(std::exchange(lastCode, code));
    lastExpression = expression;
    return code;
}

} // namespace

ConditionResult evaluateCondition(const QString& expression, PyFrameObject* frame)
{
    PyObject* code = compiled(expression);
    PyObject* globals = code ? PyFrame_GetGlobals(frame) : nullptr;
    PyObject* locals = globals ? PyFrame_GetLocals(frame) : nullptr;
    PyObject* value = locals ? PyEval_EvalCode(code, globals, locals) : nullptr;
    Py_XDECREF(globals);
    Py_XDECREF(locals);
    Py_XDECREF(code);
    if (!value)
        return ConditionResult::Raised;
    const int truth = PyObject_IsTrue(value);
    Py_DECREF(value);
    return truth < 0 ? ConditionResult::Raised : truth ? ConditionResult::True : ConditionResult::False;
}

} // namespace debugger
