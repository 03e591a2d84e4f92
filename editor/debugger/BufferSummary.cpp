#include "editor/debugger/ValueText.h"
#include "runtime/Ref.h"

#include <QStringList>

#include <cmath>
#include <limits>

namespace debugger {

namespace {

constexpr Py_ssize_t g_fewElements = 16;        // these are better written out
constexpr Py_ssize_t g_mostElements = 50000000; // about a tenth of a second
constexpr double g_noValue = -9999.0;

struct Range
{
    double least = std::numeric_limits<double>::infinity();
    double most = -std::numeric_limits<double>::infinity();
};

template <typename T>
Range rangeOf(const Py_buffer& view, bool marked)
{
    const T* const numbers = static_cast<const T*>(view.buf);
    const Py_ssize_t count = view.len / view.itemsize;
    Range range;
    for (Py_ssize_t i = 0; i < count; ++i) {
        const auto number = static_cast<double>(numbers[i]);
        if (!std::isfinite(number) || (marked && number == g_noValue))
            continue;
        range.least = std::min(range.least, number);
        range.most = std::max(range.most, number);
    }
    return range;
}

struct Format
{
    const char* code; ///< as in Python's struct module, native order
    Py_ssize_t size;
    const char* name;
    Range (*range)(const Py_buffer&, bool);
};

constexpr Format g_formats[] = {
    {"f", 4, "float32", rangeOf<float>},      {"d", 8, "float64", rangeOf<double>},
    {"b", 1, "int8", rangeOf<std::int8_t>},   {"B", 1, "uint8", rangeOf<std::uint8_t>},
    {"h", 2, "int16", rangeOf<std::int16_t>}, {"H", 2, "uint16", rangeOf<std::uint16_t>},
    {"i", 4, "int32", rangeOf<std::int32_t>}, {"I", 4, "uint32", rangeOf<std::uint32_t>},
    {"l", 8, "int64", rangeOf<std::int64_t>}, {"L", 8, "uint64", rangeOf<std::uint64_t>},
    {"q", 8, "int64", rangeOf<std::int64_t>}, {"Q", 8, "uint64", rangeOf<std::uint64_t>},
    {"?", 1, "bool", rangeOf<std::uint8_t>},
};

const Format* formatOf(const Py_buffer& view)
{
    const char* code = view.format ? view.format : "B";
    if (*code == '@' || *code == '=' || *code == '<')
        ++code;
    for (const Format& format : g_formats)
        if (qstrcmp(code, format.code) == 0 && view.itemsize == format.size)
            return &format;
    return nullptr;
}

bool isOfScriptingModule(PyObject* value)
{
    const auto module =
        python::Ref::steal(PyObject_GetAttrString(reinterpret_cast<PyObject*>(Py_TYPE(value)), "__module__"));
    PyErr_Clear();
    return module && PyUnicode_Check(module.get()) &&
           PyUnicode_CompareWithASCIIString(module.get(), "strativo_python") == 0;
}

QString describe(const Py_buffer& view, bool marked)
{
    const Format* format = formatOf(view);
    QStringList shape;
    for (int axis = 0; axis < view.ndim; ++axis)
        shape += QString::number(view.shape[axis]);
    const QString name = format ? QLatin1String(format->name) : QString::fromLatin1(view.format);
    QString text = QStringLiteral("%1 (%2)").arg(name, shape.join(QLatin1String(", ")));
    if (!format || !PyBuffer_IsContiguous(&view, 'A') || view.len / view.itemsize > g_mostElements)
        return text;
    const Range range = format->range(view, marked);
    text += range.least <= range.most ? QStringLiteral(", %1 to %2").arg(range.least).arg(range.most)
                                      : QStringLiteral(", no values");
    return text;
}

} // namespace

QString bufferSummary(PyObject* value)
{
    if (!PyObject_CheckBuffer(value) || PyBytes_Check(value) || PyByteArray_Check(value))
        return {};
    Py_buffer view;
    if (PyObject_GetBuffer(value, &view, PyBUF_RECORDS_RO) != 0) {
        PyErr_Clear();
        return {};
    }
    QString text;
    if (view.itemsize > 0 && view.ndim > 0 && view.len / view.itemsize > g_fewElements)
        text = describe(view, isOfScriptingModule(value));
    PyBuffer_Release(&view);
    PyErr_Clear();
    return text;
}

} // namespace debugger
