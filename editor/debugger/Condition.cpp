#include "editor/debugger/Condition.h"

#include "runtime/Ref.h"

namespace debugger {

using python::Ref;

namespace {

/// None with the exception pending. A condition in a loop is compiled once.
Ref compiled(const QString& expression)
{
    static QString lastExpression;
    static Ref& lastCode = *new Ref; // outlives the interpreter by design: one small object
    if (lastCode && lastExpression == expression)
        return lastCode;
    Ref code = Ref::steal(Py_CompileString(expression.toUtf8().constData(), "<condition>", Py_eval_input));
    if (!code)
        return {};
    lastCode = code;
    lastExpression = expression;
    return code;
}

} // namespace

ConditionResult evaluateCondition(const QString& expression, PyFrameObject* frame)
{
    const Ref code = compiled(expression);
    const Ref globals = Ref::steal(code ? PyFrame_GetGlobals(frame) : nullptr);
    const Ref locals = Ref::steal(globals ? PyFrame_GetLocals(frame) : nullptr);
    const Ref value = Ref::steal(locals ? PyEval_EvalCode(code.get(), globals.get(), locals.get()) : nullptr);
    if (!value)
        return ConditionResult::Raised;
    const int truth = PyObject_IsTrue(value.get());
    return truth < 0 ? ConditionResult::Raised : truth ? ConditionResult::True : ConditionResult::False;
}

} // namespace debugger
