#pragma once

#include <boost/python/errors.hpp>

namespace python {

/// Runs the body of a function that the interpreter calls from C: a C++ exception becomes the pending Python one, and
/// the result is `failed`.
template <typename Body, typename Result>
Result guarded(Result failed, Body&& body) noexcept
{
    try {
        return body();
    } catch (...) {
        boost::python::handle_exception();
        return failed;
    }
}

} // namespace python
