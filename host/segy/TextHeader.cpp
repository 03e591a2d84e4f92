#include "host/segy/TextHeader.h"

#include "host/segy/Fields.h"

#include <algorithm>
#include <segyio/segy.h>

// Exported by libsegyio, though its header does not declare them. They work on texts that end with a 0.
extern "C" {
void ebcdic2ascii(const char* ebcdic, char* ascii);
void ascii2ebcdic(const char* ascii, char* ebcdic);
}

namespace hv::segy {

namespace {

constexpr char g_ebcdicBlank = 0x40;
/// Part of the bytes that have to make sense.
constexpr double g_readable = 0.6;

bool isPrintable(char letter)
{
    return letter >= ' ' && letter <= '~';
}

/// One byte per character, printable ASCII or a blank.
QByteArray plain(QByteArray bytes, TextEncoding encoding)
{
    if (encoding == TextEncoding::Ebcdic) {
        bytes.replace('\0', g_ebcdicBlank);
        QByteArray ascii(bytes.size(), ' ');
        ebcdic2ascii(bytes.constData(), ascii.data());
        bytes = ascii;
    }
    for (char& letter : bytes)
        letter = isPrintable(letter) ? letter : ' ';
    return bytes;
}

/// How many bytes are what texts mostly consist of.
double readable(const QByteArray& header, TextEncoding encoding)
{
    QByteArray bytes = header;
    bytes.replace('\0', encoding == TextEncoding::Ebcdic ? char(0x3f) : char(0x1a));
    if (encoding == TextEncoding::Ebcdic) {
        QByteArray ascii(bytes.size(), ' ');
        ebcdic2ascii(bytes.constData(), ascii.data());
        bytes = ascii;
    }
    const auto count = std::count_if(bytes.cbegin(), bytes.cend(), [](char letter) {
        return letter == ' ' || (letter >= '0' && letter <= '9') || (letter >= 'A' && letter <= 'Z') ||
               (letter >= 'a' && letter <= 'z');
    });
    return static_cast<double>(count) / static_cast<double>(std::max(1, bytes.size()));
}

} // namespace

QString nameOf(TextEncoding encoding)
{
    return encoding == TextEncoding::Ebcdic ? QStringLiteral("EBCDIC") : QStringLiteral("ASCII");
}

std::optional<TextEncoding> guessEncoding(const QByteArray& header)
{
    const double ebcdic = readable(header, TextEncoding::Ebcdic);
    const double ascii = readable(header, TextEncoding::Ascii);
    if (std::max(ebcdic, ascii) < g_readable)
        return {};
    return ascii > ebcdic ? TextEncoding::Ascii : TextEncoding::Ebcdic;
}

QStringList decodeText(const QByteArray& header, TextEncoding encoding)
{
    const QByteArray bytes = plain(header, encoding);
    QStringList rows;
    for (int row = 0; row < g_textRows; ++row) {
        QString line = QString::fromLatin1(bytes.mid(row * g_textColumns, g_textColumns));
        while (line.endsWith(QLatin1Char(' ')))
            line.chop(1);
        rows << line;
    }
    return rows;
}

Result<QByteArray> encodeText(const QString& text, TextEncoding encoding)
{
    QByteArray bytes;
    QStringList lines = text.split(QLatin1Char('\n'));
    if (lines.size() > 1 && lines.last().isEmpty())
        lines.removeLast();
    for (QString line : lines) {
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        QByteArray row;
        for (const QChar letter : line)
            row += letter == QLatin1Char('\t')                             ? ' '
                   : letter.unicode() < 0x7f && letter >= QLatin1Char(' ') ? letter.toLatin1()
                                                                           : '?';
        const int rows = std::max(1, (row.size() + g_textColumns - 1) / g_textColumns);
        bytes += row.leftJustified(rows * g_textColumns, ' ');
    }
    if (bytes.size() > g_textBytes)
        return Failure(QStringLiteral("The textual header needs %1 rows of %2 characters; a SEG-Y file has %3.")
                           .arg(bytes.size() / g_textColumns)
                           .arg(g_textColumns)
                           .arg(g_textRows));
    bytes = bytes.leftJustified(static_cast<int>(g_textBytes), ' ');
    if (encoding == TextEncoding::Ebcdic) {
        QByteArray ebcdic(bytes.size(), g_ebcdicBlank);
        ascii2ebcdic(bytes.constData(), ebcdic.data());
        bytes = ebcdic;
    }
    return bytes;
}

} // namespace hv::segy
