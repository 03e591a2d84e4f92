#pragma once

#include "host/core/Result.h"

#include <QByteArray>
#include <QString>

class QTextDocument;

/// The bytes of a Python file and its text.
///
/// A file's encoding is what Python takes (runtime/ScriptCoding.h). Bytes that are no such text are shown as Latin-1,
/// which keeps every byte, and are saved as they were. Line ends are kept as well; a file with mixed ones is saved with
/// those that most of its lines have. Thread-safe; encodings other than UTF-8 need the interpreter.
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
    bool byteOrderMark = false;
    bool shownAsLatin1 = false; ///< the bytes are not what Python takes them for
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

/// The bytes of `text` in `form`, in the encoding that its coding comment names now, else in UTF-8, so that Python
/// reads what was written. A comment that was wrong from the start, or names what Python does not know, does not count.
/// A failure says what cannot be stored.
hv::Result<QByteArray> encodeScript(const QString& text, const TextForm& form);

/// The document's text, lines separated by "\n", every other character as it is.
QString documentText(const QTextDocument& document);

} // namespace editor
