#include "module/drawing/ColorArgument.h"

#include "module/data/ColorTuple.h"
#include "runtime/Errors.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

namespace {

bool isTuple(PyObject* object)
{
    if (!PyTuple_Check(object) && !PyList_Check(object))
        return false;
    const Py_ssize_t count = PySequence_Fast_GET_SIZE(object);
    return count == 3 || count == 4;
}

QColor namedColor(const bp::object& name)
{
    const QString text = requireStr(name, "Color, expected 'str' but got '%s'");
    const QColor color = text.isEmpty() || !QColor::isValidColor(text) ? QColor() : QColor(text);
    if (!color.isValid())
        raise(PyExc_ValueError, "Color, there is no colour named %R", name.ptr());
    return color;
}

QColor predefinedColor(long long number)
{
    // A number that is no colour can be dressed up as one: Colors(99).
    if (number < Qt::black || number > Qt::transparent)
        raise(PyExc_ValueError, "Color, there is no predefined colour %lld", number);
    return {static_cast<Qt::GlobalColor>(number)};
}

/// For the binding layer, which asks first and converts later. A Color itself is none of its business.
void* isConvertible(PyObject* object)
{
    const bool known = isStr(object) || isTuple(object) || bp::extract<Qt::GlobalColor>(object).check();
    return known ? object : nullptr;
}

void convert(PyObject* object, bp::converter::rvalue_from_python_stage1_data* data)
{
    const QColor color = colorArgument(bp::object(bp::handle<>(bp::borrowed(object))), "expected 'Color', not '%s'");
    void* storage = reinterpret_cast<bp::converter::rvalue_from_python_storage<QColor>*>(data)->storage.bytes;
    data->convertible = new (storage) QColor(color);
}

} // namespace

QColor colorArgument(const bp::object& argument, const char* format)
{
    if (const bp::extract<QColor&> color(argument); color.check())
        return color();
    if (isStr(argument.ptr()))
        return namedColor(argument);
    if (bp::extract<Qt::GlobalColor>(argument).check())
        return predefinedColor(requireInt(argument, format));
    if (isTuple(argument.ptr()))
        return QColor::fromRgba(colorFromTuple("Color", argument));
    raise(PyExc_TypeError, format, typeName(argument));
}

void registerColorArguments()
{
    bp::converter::registry::push_back(isConvertible, convert, bp::type_id<QColor>());
}

} // namespace python
