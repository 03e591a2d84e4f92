#pragma once

#include "host/core/Result.h"

#include <QByteArray>
#include <QStringList>

namespace hv::segy {

enum class TextEncoding
{
    Ebcdic,
    Ascii,
};

QString nameOf(TextEncoding encoding);

/// A textual header has 40 rows of 80 characters.
inline constexpr int g_textRows = 40;
inline constexpr int g_textColumns = 80;

/// The encoding in which more of the bytes are letters, digits and blanks; none when they are in neither (a header of
/// zeros, say).
std::optional<TextEncoding> guessEncoding(const QByteArray& header);

/// The 40 rows without the blanks at their ends. What is no printable character becomes a blank.
QStringList decodeText(const QByteArray& header, TextEncoding encoding);

/// The 3200 bytes of a text. Its lines become rows; a longer one goes on in the next row. Fails when it needs more than
/// 40. Characters outside of ASCII become "?".
Result<QByteArray> encodeText(const QString& text, TextEncoding encoding);

} // namespace hv::segy
