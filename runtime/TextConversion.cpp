#include "runtime/TextConversion.h"

#include "runtime/Errors.h"
#include "runtime/PendingError.h"
#include "runtime/RunTimeErrorHandler.h"
#include "runtime/TextSetting.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

namespace {

/// Tells the pending exception how the text can be had.
void addNote()
{
    PendingError error;
    Ref::steal(PyObject_CallMethod(error.value(), "add_note", "s",
                                   "Texts of the application reach scripts in ASCII only. To have them whole, "
                                   "turn on Settings > Python > Whole Unicode texts, or use strativo run "
                                   "--unicode-text."));
}

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
    if (areTextsWhole())
        return bp::incref(unicodeText(text).ptr());
    PyObject* str = PyUnicode_FromString(text.toLatin1().constData());
    if (!str && PyErr_ExceptionMatches(PyExc_UnicodeDecodeError))
        addNote();
    return str;
}

bp::object textObject(const QString& text)
{
    return owned(textToPython(text));
}

bp::object unicodeText(const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    return owned(PyUnicode_DecodeUTF8(utf8.constData(), utf8.size(), "replace"));
}

bp::object textState(const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    return owned(PyBytes_FromStringAndSize(utf8.constData(), utf8.size()));
}

QString textFromState(const bp::object& state)
{
    if (!PyBytes_Check(state.ptr()))
        raise(PyExc_TypeError, "__setstate__(), expected 'bytes' but got '%s'", typeName(state));
    return QString::fromUtf8(PyBytes_AS_STRING(state.ptr()), static_cast<int>(PyBytes_GET_SIZE(state.ptr())));
}

void registerTextConversion()
{
    bp::to_python_converter<QString, TextToPython, true>();
    // The type is named here: the registry's own answer would ask this converter again, without end.
    bp::converter::registry::push_back(&TextFromPython::convertible, &TextFromPython::construct, bp::type_id<QString>(),
                                       &TextToPython::get_pytype);
}

} // namespace python
