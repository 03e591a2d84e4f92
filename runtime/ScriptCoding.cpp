#include "runtime/ScriptCoding.h"

#include "runtime/Errors.h"
#include "runtime/GilLock.h"
#include "runtime/PendingError.h"
#include "runtime/TextConversion.h"

#include <boost/python.hpp>

#include <QCoreApplication>
#include <QRegularExpression>

namespace bp = boost::python;

namespace python {

namespace {

constexpr char g_byteOrderMark[] = "\xef\xbb\xbf";
constexpr int g_markSize = sizeof g_byteOrderMark - 1;

/// What the pending exception says; clears it.
QString takeErrorText()
{
    PendingError error;
    const Ref text = Ref::steal(error ? PyObject_Str(error.value()) : nullptr);
    QString result;
    if (!text || !textFromPython(text.get(), result))
        result = QStringLiteral("unknown error");
    error.drop();
    PyErr_Clear();
    return result;
}

/// None with the exception pending.
Ref encoded(const QString& text, const QByteArray& encoding)
{
    const Ref str =
        Ref::steal(PyUnicode_DecodeUTF16(reinterpret_cast<const char*>(text.utf16()),
                                         static_cast<Py_ssize_t>(text.size()) * 2, "surrogatepass", nullptr));
    return Ref::steal(str ? PyUnicode_AsEncodedString(str.get(), encoding.constData(), "strict") : nullptr);
}

/// A sentence on the first character that stands in the way, after encoded() failed.
QString takeEncodingError(const QString& text, const QByteArray& encoding)
{
    if (!PyErr_ExceptionMatches(PyExc_UnicodeEncodeError))
        return takeErrorText();
    PendingError error;
    Py_ssize_t start = 0;
    PyUnicodeEncodeError_GetStart(error.value(), &start);
    error.drop();
    PyErr_Clear();
    const QVector<uint> characters = text.toUcs4();
    const uint character = characters.value(static_cast<int>(start));
    const auto line = std::count(characters.begin(), characters.begin() + static_cast<int>(start), uint{'\n'}) + 1;
    return QCoreApplication::translate("ScriptCoding",
                                       "Line %1 has the character \"%2\", which the encoding %3 has not. "
                                       "Change the coding comment to utf-8.")
        .arg(QString::number(line), QString::fromUcs4(&character, 1), QString::fromLatin1(encoding));
}

} // namespace

ScriptCoding codingOf(const QByteArray& source)
{
    static const QRegularExpression coding(QStringLiteral("^[ \\t\\f]*#.*?coding[:=][ \\t]*([-\\w.]+)"));
    static const QRegularExpression blank(QStringLiteral("^[ \\t\\f]*(?:#|$)"));
    ScriptCoding found;
    found.byteOrderMark = source.startsWith(g_byteOrderMark);
    int start = found.byteOrderMark ? g_markSize : 0;
    for (int line = 0; line < 2 && start < source.size(); ++line) {
        int end = start;
        while (end < source.size() && source.at(end) != '\n' && source.at(end) != '\r')
            ++end;
        const QString text = QString::fromLatin1(source.constData() + start, end - start);
        if (const QRegularExpressionMatch match = coding.match(text); match.hasMatch()) {
            found.encoding = match.captured(1).toLatin1();
            found.named = true;
            return found;
        }
        if (!blank.match(text).hasMatch())
            break;
        start = end + (source.mid(end, 2) == "\r\n" ? 2 : 1);
    }
    return found;
}

bool isUtf8(const QByteArray& encoding)
{
    const QByteArray name = encoding.toLower().replace('_', '-');
    return name == "utf8" || name.startsWith("utf-8");
}

bool isScriptEncoding(const QByteArray& encoding)
{
    const GilLock lock;
    const QByteArray sample = "# coding: ";
    const Ref bytes = encoded(QString::fromLatin1(sample), encoding);
    const bool same = bytes && sample == PyBytes_AS_STRING(bytes.get());
    PyErr_Clear();
    return same;
}

hv::Result<QString> decodeText(const QByteArray& bytes, const QByteArray& encoding)
{
    const GilLock lock;
    const Ref decoded = Ref::steal(PyUnicode_Decode(bytes.constData(), bytes.size(), encoding.constData(), "strict"));
    QString text;
    if (!decoded || !textFromPython(decoded.get(), text))
        return hv::Failure(takeErrorText());
    return text;
}

hv::Result<QByteArray> encodeText(const QString& text, const QByteArray& encoding)
{
    const GilLock lock;
    const Ref bytes = encoded(text, encoding);
    if (!bytes)
        return hv::Failure(takeEncodingError(text, encoding));
    return QByteArray(PyBytes_AS_STRING(bytes.get()), static_cast<int>(PyBytes_GET_SIZE(bytes.get())));
}

hv::Result<QString> decodeScript(const QByteArray& bytes)
{
    const ScriptCoding coding = codingOf(bytes);
    if (coding.byteOrderMark && !isUtf8(coding.encoding))
        return hv::Failure(QStringLiteral("encoding problem: %1 with BOM").arg(QString::fromLatin1(coding.encoding)));
    return decodeText(coding.byteOrderMark ? bytes.mid(g_markSize) : bytes, coding.encoding);
}

} // namespace python
