#include "editor/ScriptText.h"

#include "runtime/ScriptCoding.h"

#include <QCoreApplication>
#include <QTextCodec>
#include <QTextDocument>

#include <algorithm>

namespace editor {

using python::isUtf8;

namespace {

constexpr char g_utf8Mark[] = "\xef\xbb\xbf";
const QByteArray g_utf8 = "utf-8";
constexpr int g_longestStart = 1000; // characters in which a coding comment is looked for

QString tr(const char* text)
{
    return QCoreApplication::translate("ScriptText", text);
}

/// UTF-8, nearly every file, is left to Qt, which is fast and does not wait for the interpreter.
bool decode(const QByteArray& bytes, const QByteArray& encoding, QString& text)
{
    if (!isUtf8(encoding)) {
        if (!python::isScriptEncoding(encoding))
            return false;
        const auto decoded = python::decodeText(bytes, encoding);
        if (decoded)
            text = *decoded;
        return static_cast<bool>(decoded);
    }
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    text = QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

hv::Result<QByteArray> encode(const QString& text, const QByteArray& encoding)
{
    if (isUtf8(encoding)) {
        if (!text.isValidUtf16())
            return hv::Failure(tr("The text has half a character, which no encoding can store."));
        return text.toUtf8();
    }
    return python::encodeText(text, encoding);
}

/// Makes all line ends "\n" and tells which most lines had.
LineEnd normaliseLineEnds(QString& text, bool& mixed)
{
    const int crLf = text.count(QLatin1String("\r\n"));
    const int cr = text.count(QLatin1Char('\r')) - crLf;
    const int lf = text.count(QLatin1Char('\n')) - crLf;
    mixed = (crLf > 0) + (cr > 0) + (lf > 0) > 1;
    if (crLf > 0)
        text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    if (cr > 0)
        text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    if (crLf > lf && crLf >= cr)
        return LineEnd::CrLf;
    return cr > lf ? LineEnd::Cr : LineEnd::Lf;
}

} // namespace

ScriptText decodeScript(const QByteArray& bytes)
{
    const python::ScriptCoding coding = python::codingOf(bytes);
    const QByteArray named = coding.named ? coding.encoding : QByteArray();
    ScriptText script;
    script.form.byteOrderMark = coding.byteOrderMark;
    const bool isText = coding.byteOrderMark ? decode(bytes.mid(sizeof g_utf8Mark - 1), g_utf8, script.text)
                                             : decode(bytes, coding.encoding, script.text);
    if (!isText) {
        script.remark = named.isEmpty() ? tr("The file is not UTF-8 text and has no coding comment. It is shown and "
                                             "saved as Latin-1; Python will not run the file as it is.")
                                        : tr("The file is not the %1 text that its coding comment names. It is shown "
                                             "and saved as Latin-1.")
                                              .arg(QString::fromLatin1(named));
        script.text = QString::fromLatin1(bytes);
        script.form = {false, true, LineEnd::Lf, named};
    } else if (coding.byteOrderMark && coding.named && !isUtf8(named)) {
        script.remark = tr("The file is marked as UTF-8 and shown so, although its coding comment names %1. Python "
                           "will not run the file as it is.")
                            .arg(QString::fromLatin1(named));
        script.form.wrongComment = named;
    }
    bool mixed = false;
    script.form.lineEnd = normaliseLineEnds(script.text, mixed);
    if (mixed && script.remark.isEmpty())
        script.remark = tr("The file has different line ends; saving it will make them alike.");
    return script;
}

hv::Result<QByteArray> encodeScript(const QString& text, const TextForm& form)
{
    const python::ScriptCoding coding = python::codingOf(text.left(g_longestStart).toLatin1());
    const bool toldByComment = coding.named && coding.encoding != form.wrongComment &&
                               (isUtf8(coding.encoding) || python::isScriptEncoding(coding.encoding));
    QByteArray encoding = toldByComment ? coding.encoding : form.shownAsLatin1 ? "latin-1" : g_utf8;
    auto bytes = encode(text, encoding);
    // What was shown as Latin-1 may have grown beyond it.
    if (!bytes && !toldByComment)
        bytes = encode(text, encoding = g_utf8);
    if (!bytes)
        return bytes;
    // Script encodings leave ASCII characters as they are.
    if (form.lineEnd != LineEnd::Lf)
        bytes->replace("\n", form.lineEnd == LineEnd::CrLf ? "\r\n" : "\r");
    return form.byteOrderMark && isUtf8(encoding) ? g_utf8Mark + *bytes : *bytes;
}

QString documentText(const QTextDocument& document)
{
    QString text = document.toRawText();
    std::replace(text.begin(), text.end(), QChar(QChar::ParagraphSeparator), QChar(QLatin1Char('\n')));
    return text;
}

} // namespace editor
