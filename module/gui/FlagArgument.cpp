#include "module/gui/FlagArgument.h"

#include "runtime/Errors.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

namespace {

template <typename Enum>
QFlags<Enum> flagsArgument(const bp::object& argument, const char* format, unsigned mask, const char* meaning)
{
    if (!PyLong_CheckExact(argument.ptr()) && !bp::extract<Enum>(argument).check())
        raise(PyExc_TypeError, format, typeName(argument));
    const long long bits = requireInt(argument, format);
    if (bits < 0 || (bits & ~static_cast<long long>(mask)) != 0)
        raise(PyExc_ValueError, "%lld is no combination of %s", bits, meaning);
    return QFlags<Enum>(QFlag(static_cast<unsigned>(bits)));
}

} // namespace

Qt::Alignment alignmentArgument(const bp::object& argument, const char* format)
{
    return flagsArgument<Qt::AlignmentFlag>(argument, format, Qt::AlignHorizontal_Mask | Qt::AlignVertical_Mask,
                                            "Align");
}

Qt::KeyboardModifiers modifiersArgument(const bp::object& argument, const char* format)
{
    return flagsArgument<Qt::KeyboardModifier>(argument, format, Qt::KeyboardModifierMask, "KeyboardModifiers");
}

} // namespace python
