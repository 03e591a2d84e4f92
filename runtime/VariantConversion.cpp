#include "runtime/VariantConversion.h"

#include "runtime/Errors.h"
#include "runtime/RunTimeErrorHandler.h"
#include "runtime/TextConversion.h"

#include <boost/python.hpp>

#include <QVariant>

#include <limits>

namespace bp = boost::python;

namespace python {

namespace {

struct VariantToPython
{
    static PyObject* convert(const QVariant& variant) { return variantToPython(variant); }
};

/// Integers as the host stores them: the plain integer variant where the value fits it.
QVariant integerVariant(PyObject* object)
{
    const long value = PyLong_AsLong(object);
    if (value == -1 && PyErr_Occurred())
        raisePending();
    if (value >= std::numeric_limits<int>::min() && value <= std::numeric_limits<int>::max())
        return QVariant(static_cast<int>(value));
    return QVariant(static_cast<qlonglong>(value));
}

struct VariantFromPython
{
    static void* convertible(PyObject* object)
    {
        if (isVariantType(object))
            return object;
        PyErr_Format(PyExc_TypeError,
                     "conversion to variant only supported for types 'int', 'bool', 'float', and 'str' but got '%s'",
                     typeName(object));
        return nullptr;
    }

    static void construct(PyObject* object, bp::converter::rvalue_from_python_stage1_data* data)
    {
        void* storage = reinterpret_cast<bp::converter::rvalue_from_python_storage<QVariant>*>(data)->storage.bytes;
        new (storage) QVariant(variantFromPython(object));
        data->convertible = storage;
    }
};

} // namespace

bool isVariantType(PyObject* object)
{
    return PyLong_Check(object) || PyUnicode_Check(object) || PyFloat_Check(object);
}

QVariant variantFromPython(PyObject* object)
{
    if (PyUnicode_Check(object)) {
        QString text;
        if (!textFromPython(object, text))
            handleRunTimeError(nullptr);
        return QVariant(text);
    }
    if (PyLong_Check(object)) // a bool is one
        return integerVariant(object);
    if (PyFloat_Check(object))
        return QVariant(PyFloat_AsDouble(object));
    raise(PyExc_TypeError,
          "construction of variant only supported for types 'int', 'bool', 'float', and 'str' but got '%s'",
          typeName(object));
}

PyObject* variantToPython(const QVariant& variant)
{
    switch (static_cast<QMetaType::Type>(variant.type())) {
    case QMetaType::Bool:
        return PyBool_FromLong(variant.toBool() ? 1 : 0);
    case QMetaType::Int:
    case QMetaType::LongLong:
        return PyLong_FromLongLong(variant.toLongLong());
    case QMetaType::Double:
        return PyFloat_FromDouble(variant.toDouble());
    case QMetaType::QString:
        return textToPython(variant.toString());
    default:
        PyErr_SetString(PyExc_TypeError,
                        "conversion to variant only supported for types 'int', 'bool', 'float', and 'str'");
        return nullptr;
    }
}

void registerVariantConversion()
{
    bp::to_python_converter<QVariant, VariantToPython>();
    bp::converter::registry::push_back(&VariantFromPython::convertible, &VariantFromPython::construct,
                                       bp::type_id<QVariant>());
}

} // namespace python
