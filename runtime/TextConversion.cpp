#include "runtime/TextConversion.h"

#include "runtime/RunTimeErrorHandler.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

namespace {

struct TextToPython
{
    static PyObject* convert(const QString& text) { return textToPython(text); }
    static const PyTypeObject* get_pytype() { return &PyUnicode_Type; }
};

struct TextFromPython
{
    /// A str without a UTF-8 form is reported at once and then counts as not convertible.
    static void* convertible(PyObject* object)
    {
        if (!PyUnicode_Check(object))
            return nullptr;
        if (PyUnicode_AsUTF8AndSize(object, nullptr))
            return object;
        handleRunTimeError(nullptr);
        return nullptr;
    }

    static void construct(PyObject* object, bp::converter::rvalue_from_python_stage1_data* data)
    {
        void* storage = reinterpret_cast<bp::converter::rvalue_from_python_storage<QString>*>(data)->storage.bytes;
        auto* text = new (storage) QString;
        textFromPython(object, *text);
        data->convertible = storage;
    }
};

} // namespace

bool textFromPython(PyObject* str, QString& text)
{
    Py_ssize_t size = 0;
    const char* utf8 = PyUnicode_AsUTF8AndSize(str, &size);
    if (utf8)
        text = QString::fromUtf8(utf8, static_cast<int>(size));
    return utf8 != nullptr;
}

PyObject* textToPython(const QString& text)
{
    return PyUnicode_FromString(text.toLatin1().constData());
}

void registerTextConversion()
{
    bp::to_python_converter<QString, TextToPython, true>();
    bp::converter::registry::push_back(&TextFromPython::convertible, &TextFromPython::construct, bp::type_id<QString>(),
                                       &bp::converter::expected_pytype_for_arg<QString>::get_pytype);
}

} // namespace python
