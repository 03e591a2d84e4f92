#pragma once

#include <boost/python/detail/wrap_python.hpp>

#include <QString>

namespace debugger {

enum class ConditionResult
{
    False,
    True,
    Raised, ///< the exception is pending
};

/// Evaluates a Python expression with the names that the frame sees. Needs the interpreter lock.
ConditionResult evaluateCondition(const QString& expression, PyFrameObject* frame);

} // namespace debugger
