#pragma once

#include <QByteArray>
#include <QString>

class QTextDocument;

/// The bytes of a Python file and its text.
///
/// A file's encoding is what Python takes: UTF-8, with or without a byte order mark, or what a coding comment in the
/// first two lines names (https://peps.python.org/pep-0263/). Bytes that are neither are shown as Latin-1, which keeps
/// every byte, and are saved as they were. Line ends are kept as well; a file with mixed ones is saved with those that
/// most of its lines have. Thread-safe.
namespace editor {

enum class LineEnd
{
    Lf,
    CrLf,
    Cr,
};

/// How the text of a file is stored.
struct TextForm
{
    QByteArray codec = "UTF-8"; ///< as QTextCodec names it
    bool byteOrderMark = false;
    LineEnd lineEnd = LineEnd::Lf;
    QByteArray wrongComment; ///< what a coding comment names although the bytes are something else
};

struct ScriptText
{
    QString text; ///< lines separated by "\n"
    TextForm form;
    QString remark; ///< what the user should know of the file, or empty
};

ScriptText decodeScript(const QByteArray& bytes);

/// The bytes of `text` in `form`; a coding comment in the text wins over the form's codec, as it does
/// for Python, unless it was wrong from the start.
/// On failure the result is null and `error` says what cannot be stored.
QByteArray encodeScript(const QString& text, const TextForm& form, QString& error);

/// The document's text, lines separated by "\n", every other character as it is.
QString documentText(const QTextDocument& document);

} // namespace editor
