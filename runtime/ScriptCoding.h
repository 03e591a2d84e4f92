#pragma once

#include "host/core/Result.h"

#include <QByteArray>
#include <QString>

/// The bytes of Python files as the interpreter reads them: UTF-8, with or without a byte order mark, unless a coding
/// comment in the first two lines names another encoding (https://peps.python.org/pep-0263/).
///
/// Encodings are the interpreter's own and go by its names, so what needs one takes the interpreter lock.
namespace python {

struct ScriptCoding
{
    QByteArray encoding = "utf-8";
    bool byteOrderMark = false;
    bool named = false; ///< whether the encoding stands in a coding comment
};

/// What the first two lines say. Thread-safe, without the lock.
ScriptCoding codingOf(const QByteArray& source);

/// Whether it is one of Python's names of UTF-8. Thread-safe, without the lock.
bool isUtf8(const QByteArray& encoding);

/// Whether a script can be written in the encoding: the interpreter has it, and ASCII characters stay as they are in
/// it.
bool isScriptEncoding(const QByteArray& encoding);

/// The bytes' text. Fails for bytes that are not text in that encoding.
hv::Result<QString> decodeText(const QByteArray& bytes, const QByteArray& encoding);

/// The text's bytes. Fails when the encoding lacks one of its characters; the sentence names the line, counted from 1.
hv::Result<QByteArray> encodeText(const QString& text, const QByteArray& encoding);

/// The text of a whole file, without its byte order mark; otherwise as decodeText(). A coding comment that contradicts
/// the mark is an error, as it is for the interpreter.
hv::Result<QString> decodeScript(const QByteArray& bytes);

} // namespace python
