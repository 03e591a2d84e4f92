#include "runtime/ScriptArguments.h"

#include "runtime/Errors.h"
#include "runtime/GilLock.h"

#include <boost/python.hpp>

#include <QRegularExpression>

namespace bp = boost::python;

namespace python {

namespace {

struct CodingComment
{
    QByteArray encoding = "utf-8";
    /// Position and length of the word "coding" in the source, -1 when there is no comment.
    int position = -1;
};

CodingComment codingComment(const QByteArray& source)
{
    static const QRegularExpression coding(QStringLiteral("^[ \\t\\f]*#.*?(coding)[:=][ \\t]*([-\\w.]+)"));
    static const QRegularExpression blank(QStringLiteral("^[ \\t\\f]*(?:[#\\r\\n]|$)"));
    int start = 0;
    for (int line = 0; line < 2 && start < source.size(); ++line) {
        int end = source.indexOf('\n', start);
        end = end < 0 ? source.size() : end;
        const QString text = QString::fromLatin1(source.mid(start, end - start));
        const QRegularExpressionMatch match = coding.match(text);
        if (match.hasMatch())
            return {match.captured(2).toLatin1(), start + match.capturedStart(1)};
        if (!blank.match(text).hasMatch())
            break;
        start = end + 1;
    }
    return {};
}

/// What the pending exception says; clears it.
QString takeErrorText()
{
    PyObject *type = nullptr, *value = nullptr, *traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    PyErr_NormalizeException(&type, &value, &traceback);
    PyObject* text = value ? PyObject_Str(value) : nullptr;
    const char* utf8 = text ? PyUnicode_AsUTF8(text) : nullptr;
    QString result = QString::fromUtf8(utf8 ? utf8 : "unknown error");
    PyErr_Clear();
    for (PyObject* object : {text, type, value, traceback})
        Py_XDECREF(object);
    return result;
}

} // namespace

void setScriptArguments(const QStringList& arguments, const QString& directory, const QString& file)
{
    const GilLock lock;
    bp::list argv;
    for (const QString& argument : arguments)
        argv.append(unicodeText(argument));
    bp::object sys = bp::import("sys");
    sys.attr("argv") = argv;
    sys.attr("path").attr("insert")(0, unicodeText(directory));
    if (!file.isEmpty()) {
        bp::object main = bp::import("__main__");
        main.attr("__file__") = unicodeText(file);
    }
}

bool decodeScript(const QByteArray& bytes, QString& text, QString& error)
{
    QByteArray source = bytes;
    if (source.startsWith("\xef\xbb\xbf"))
        source.remove(0, 3);
    const CodingComment coding = codingComment(source);
    // The text is compiled from UTF-8, so the comment must not name another encoding any more.
    if (coding.position >= 0)
        source.replace(coding.position, 6, "Coding");

    const GilLock lock;
    PyObject* decoded = PyUnicode_Decode(source.constData(), source.size(), coding.encoding.constData(), "strict");
    Py_ssize_t size = 0;
    const char* utf8 = decoded ? PyUnicode_AsUTF8AndSize(decoded, &size) : nullptr;
    if (utf8)
        text = QString::fromUtf8(utf8, static_cast<int>(size));
    else
        error = takeErrorText();
    Py_XDECREF(decoded);
    return utf8 != nullptr;
}

} // namespace python
