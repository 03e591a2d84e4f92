#include "editor/debugger/ValueText.h"

#include "editor/debugger/TimeLimit.h"
#include "runtime/Ref.h"

namespace debugger {

using python::Ref;

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr int g_longest = 1000;           // characters of a text
constexpr Py_ssize_t g_mostElements = 64; // of a container that is written whole
constexpr milliseconds g_perValue{250};

/// Types whose repr runs no code of the script and is quick.
bool isPlain(PyObject* value)
{
    return value == Py_None || PyBool_Check(value) || PyFloat_CheckExact(value) || PyComplex_CheckExact(value) ||
           (PyLong_CheckExact(value) && Py_ABS(Py_SIZE(value)) < 100);
}

/// New reference to the head of a value that is too long to write out; null (nothing pending) when it is short.
PyObject* headOf(PyObject* value, Py_ssize_t& size)
{
    const bool text = PyUnicode_CheckExact(value) || PyBytes_CheckExact(value) || PyByteArray_CheckExact(value);
    if (!text && !PyList_CheckExact(value) && !PyTuple_CheckExact(value))
        return nullptr;
    size = PyObject_Size(value);
    const Py_ssize_t most = text ? g_longest : g_mostElements;
    PyObject* head = size > most ? PySequence_GetSlice(value, 0, most) : nullptr;
    PyErr_Clear();
    return head;
}

/// Containers without an order are cut by number of elements alone.
QString sizeOnly(PyObject* value)
{
    if (!PyDict_CheckExact(value) && !PyAnySet_CheckExact(value))
        return {};
    const Py_ssize_t size = PyObject_Size(value);
    return size > 10 * g_mostElements ? QStringLiteral("<%1 of %2 elements>")
                                            .arg(QLatin1String(Py_TYPE(value)->tp_name))
                                            .arg(static_cast<qlonglong>(size))
                                      : QString();
}

QString cut(QString text)
{
    if (text.size() > g_longest) {
        text.truncate(g_longest);
        text += QStringLiteral("…");
    }
    return text;
}

/// The repr as text; a remark, and nothing pending, when it failed.
QString repr(PyObject* value)
{
    Ref text = Ref::steal(PyObject_Repr(value));
    if (!text) {
        PyObject* type = PyErr_Occurred();
        const QString name = type ? QString::fromUtf8(reinterpret_cast<PyTypeObject*>(type)->tp_name) : QString();
        PyErr_Clear();
        return QStringLiteral("<repr raised %1>").arg(name);
    }
    // The UTF-8 of the whole would be computed and kept for nothing.
    const Ref head = Ref::steal(PyUnicode_Substring(text.get(), 0, g_longest + 1));
    text.reset();
    const Ref bytes = Ref::steal(head ? PyUnicode_AsEncodedString(head.get(), "utf-8", "backslashreplace") : nullptr);
    PyErr_Clear();
    return bytes ? QString::fromUtf8(PyBytes_AS_STRING(bytes.get())) : QString();
}

} // namespace

QString ValueText::of(PyObject* value)
{
    if (isPlain(value))
        return repr(value);
    if (const QString summary = bufferSummary(value); !summary.isEmpty())
        return summary;
    if (const QString summary = sizeOnly(value); !summary.isEmpty())
        return summary;
    Py_ssize_t size = 0;
    if (const Ref head = Ref::steal(headOf(value, size)))
        return QStringLiteral("%1… (%2)").arg(limitedRepr(head.get())).arg(static_cast<qlonglong>(size));
    return cut(limitedRepr(value));
}

QString ValueText::limitedRepr(PyObject* value)
{
    if (m_left <= milliseconds(0))
        return QStringLiteral("<not shown: the other values took too long>");
    const steady_clock::time_point start = steady_clock::now();
    QString text;
    {
        const TimeLimit limit(std::min(m_left, g_perValue));
        text = repr(value);
        if (limit.hasStruck())
            text = QStringLiteral("<repr took too long>");
    }
    m_left -= std::chrono::duration_cast<milliseconds>(steady_clock::now() - start);
    return text;
}

} // namespace debugger
