#include "editor/ScriptText.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QTextCodec>
#include <QTextDocument>

#include <algorithm>

namespace editor {

namespace {

constexpr char g_utf8Mark[] = "\xef\xbb\xbf";

QString tr(const char* text)
{
    return QCoreApplication::translate("ScriptText", text);
}

/// The name in a coding comment of the first two lines; empty when there is none.
QByteArray codingComment(const QString& start)
{
    static const QRegularExpression comment(QStringLiteral("\\A(?:[ \\t\\f]*(?:#[^\\n]*)?\\r?\\n)?"
                                                           "[ \\t\\f]*#[^\\n]*?coding[:=][ \\t]*([-\\w.]+)"));
    return comment.match(start.left(1000)).captured(1).toLatin1();
}

/// Python's spellings of UTF-8 and Latin-1 include some that Qt has not.
QTextCodec* codecNamed(QByteArray name)
{
    name = name.toLower().replace('_', '-');
    if (name == "utf8" || name.startsWith("utf-8"))
        name = "UTF-8";
    else if (name == "latin-1" || name == "iso8859-1")
        name = "ISO-8859-1";
    else if (name.startsWith("cp125"))
        name = "windows-" + name.mid(2);
    return QTextCodec::codecForName(name);
}

bool decode(QTextCodec* codec, const QByteArray& bytes, QString& text)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    text = codec->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
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
    ScriptText script;
    script.form.byteOrderMark = bytes.startsWith(g_utf8Mark);
    const QByteArray body = script.form.byteOrderMark ? bytes.mid(sizeof g_utf8Mark - 1) : bytes;
    const QByteArray named = codingComment(QString::fromLatin1(body.left(1000)));
    QTextCodec* codec = codecNamed(named.isEmpty() ? QByteArray("UTF-8") : named);
    if (!codec || !decode(codec, body, script.text)) {
        script.remark = named.isEmpty() ? tr("The file is not UTF-8 text and has no coding comment. It is shown and "
                                             "saved as Latin-1; Python will not run the file as it is.")
                                        : tr("The file is not the %1 text that its coding comment names. It is shown "
                                             "and saved as Latin-1.")
                                              .arg(QString::fromLatin1(named));
        codec = QTextCodec::codecForName("ISO-8859-1");
        script.text = QString::fromLatin1(body);
        script.form.wrongComment = named;
    }
    script.form.codec = codec->name();
    bool mixed = false;
    script.form.lineEnd = normaliseLineEnds(script.text, mixed);
    if (mixed && script.remark.isEmpty())
        script.remark = tr("The file has different line ends; saving it will make them alike.");
    return script;
}

QByteArray encodeScript(const QString& text, const TextForm& form, QString& error)
{
    const QByteArray named = codingComment(text);
    const bool toldByComment = !named.isEmpty() && named != form.wrongComment && codecNamed(named);
    QTextCodec* codec = toldByComment ? codecNamed(named) : QTextCodec::codecForName(form.codec);
    // Text that came as Latin-1 for want of a better codec may have grown beyond it.
    if (!toldByComment && !codec->canEncode(text))
        codec = QTextCodec::codecForName("UTF-8");
    QString lines = text;
    if (form.lineEnd != LineEnd::Lf)
        lines.replace(QLatin1Char('\n'), QLatin1String(form.lineEnd == LineEnd::CrLf ? "\r\n" : "\r"));
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QByteArray bytes = codec->fromUnicode(lines.constData(), lines.size(), &state);
    if (state.invalidChars > 0) {
        error = tr("The text has characters that its encoding %1 has not. Change the coding comment to utf-8.")
                    .arg(QString::fromLatin1(codec->name()));
        return {};
    }
    error.clear();
    return form.byteOrderMark && codec->name() == "UTF-8" ? g_utf8Mark + bytes : QByteArray("") + bytes;
}

QString documentText(const QTextDocument& document)
{
    QString text = document.toRawText();
    std::replace(text.begin(), text.end(), QChar(QChar::ParagraphSeparator), QChar(QLatin1Char('\n')));
    return text;
}

} // namespace editor
