#pragma once

#include "module/Conversion.h"

namespace python {

/// A file's path as scripts give it: a str, or an object that names a path (os.PathLike, such as pathlib.Path). Also a
/// type for parameters of registered functions.
struct PathText
{
    QString text;
};

/// The code of the object runs meanwhile, and its exceptions come through. Paths of bytes are refused: files are
/// addressed by Unicode text on every system.
template <>
struct Argument<PathText>
{
    static PathText from(PyObject* object, const char* where);
};

/// Called once, before any function is registered.
void registerPathConversion();

} // namespace python
