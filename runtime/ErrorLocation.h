#pragma once

#include <boost/python/detail/wrap_python.hpp>

#include <string>

/// Where an exception came from. Everything here needs the interpreter lock and leaves nothing pending.
namespace python {

/// Empty for anything but a str with a UTF-8 form.
std::string utf8Of(PyObject* object);

struct ErrorLocation
{
    std::string file;
    std::string function;
    long line = -1;
};

/// Where the innermost call stood when the exception was raised; unknown without a traceback.
ErrorLocation innermostLocation(PyObject* traceback);

} // namespace python
