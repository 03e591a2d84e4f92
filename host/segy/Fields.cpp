#include "host/segy/Fields.h"

#include <QStringList>

#include <array>
#include <cstring>

namespace hv::segy {

namespace {

constexpr std::array g_traceFields{
    Field{1, 4, "Trace number in line"},
    Field{5, 4, "Trace number in file"},
    Field{9, 4, "Original field record"},
    Field{13, 4, "Trace number in field record"},
    Field{17, 4, "Source point"},
    Field{21, 4, "Ensemble (CDP)"},
    Field{25, 4, "Trace number in ensemble"},
    Field{29, 2, "Trace identification"},
    Field{31, 2, "Vertically summed traces"},
    Field{33, 2, "Horizontally stacked traces"},
    Field{35, 2, "Data use"},
    Field{37, 4, "Offset"},
    Field{41, 4, "Receiver elevation"},
    Field{45, 4, "Source elevation"},
    Field{49, 4, "Source depth"},
    Field{53, 4, "Receiver datum"},
    Field{57, 4, "Source datum"},
    Field{61, 4, "Water depth at source"},
    Field{65, 4, "Water depth at receiver"},
    Field{69, 2, "Scalar of elevations"},
    Field{71, 2, "Scalar of coordinates"},
    Field{73, 4, "Source X"},
    Field{77, 4, "Source Y"},
    Field{81, 4, "Receiver X"},
    Field{85, 4, "Receiver Y"},
    Field{89, 2, "Units of coordinates"},
    Field{91, 2, "Weathering velocity"},
    Field{93, 2, "Subweathering velocity"},
    Field{95, 2, "Uphole time at source"},
    Field{97, 2, "Uphole time at receiver"},
    Field{99, 2, "Source static"},
    Field{101, 2, "Receiver static"},
    Field{103, 2, "Total static"},
    Field{105, 2, "Lag time A"},
    Field{107, 2, "Lag time B"},
    Field{109, 2, "Delay recording time"},
    Field{111, 2, "Mute start"},
    Field{113, 2, "Mute end"},
    Field{115, 2, "Number of samples"},
    Field{117, 2, "Sample interval"},
    Field{119, 2, "Gain type"},
    Field{157, 2, "Year"},
    Field{159, 2, "Day of year"},
    Field{161, 2, "Hour"},
    Field{163, 2, "Minute"},
    Field{165, 2, "Second"},
    Field{167, 2, "Time basis"},
    Field{181, 4, "CDP X"},
    Field{185, 4, "CDP Y"},
    Field{189, 4, "Inline number"},
    Field{193, 4, "Crossline number"},
    Field{197, 4, "Shot point"},
    Field{201, 2, "Scalar of shot point"},
    Field{203, 2, "Unit of samples"},
    Field{215, 2, "Scalar of times"},
};

constexpr std::array g_binaryFields{
    Field{3201, 4, "Job"},
    Field{3205, 4, "Line"},
    Field{3209, 4, "Reel"},
    Field{3213, 2, "Traces per ensemble"},
    Field{3215, 2, "Auxiliary traces per ensemble"},
    Field{3217, 2, "Sample interval"},
    Field{3219, 2, "Sample interval in the field"},
    Field{3221, 2, "Samples per trace"},
    Field{3223, 2, "Samples per trace in the field"},
    Field{3225, 2, "Sample format"},
    Field{3227, 2, "Ensemble fold"},
    Field{3229, 2, "Trace sorting"},
    Field{3231, 2, "Vertical sum"},
    Field{3249, 2, "Correlated traces"},
    Field{3251, 2, "Binary gain recovered"},
    Field{3253, 2, "Amplitude recovery"},
    Field{3255, 2, "Measurement system"},
    Field{3257, 2, "Impulse polarity"},
    Field{3259, 2, "Vibratory polarity"},
    Field{3269, 4, "Samples per trace (revision 2)"},
    Field{3297, 4, "Byte order (revision 2)"},
    Field{3501, 2, "Revision"},
    Field{3503, 2, "Fixed trace length"},
    Field{3505, 2, "Extended text headers"},
    Field{3507, 4, "Additional trace headers (revision 2)"},
};

} // namespace

std::optional<Position> positionFromText(const QString& text)
{
    const QStringList parts = text.trimmed().split(QLatin1Char(':'));
    bool isByte = false;
    bool isSize = true;
    Position position{parts.value(0).toInt(&isByte)};
    if (parts.size() > 1)
        position.size = parts.value(1).toInt(&isSize);
    const bool isNone = position.byte == 0 && parts.size() == 1;
    if (!isByte || !isSize || parts.size() > 2 || (!isNone && !position.isValid()))
        return {};
    return position;
}

QString textOf(Position position)
{
    return position.size == 4 ? QString::number(position.byte)
                              : QStringLiteral("%1:%2").arg(position.byte).arg(position.size);
}

std::int32_t int32At(const std::byte* bytes, ByteOrder order)
{
    std::uint32_t bits = 0;
    std::memcpy(&bits, bytes, sizeof bits);
    return static_cast<std::int32_t>(order == ByteOrder::Big ? __builtin_bswap32(bits) : bits);
}

std::int16_t int16At(const std::byte* bytes, ByteOrder order)
{
    std::uint16_t bits = 0;
    std::memcpy(&bits, bytes, sizeof bits);
    return static_cast<std::int16_t>(order == ByteOrder::Big ? __builtin_bswap16(bits) : bits);
}

std::uint64_t uint64At(const std::byte* bytes, ByteOrder order)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, bytes, sizeof bits);
    return order == ByteOrder::Big ? __builtin_bswap64(bits) : bits;
}

std::int32_t valueAt(const std::byte* header, Position position, ByteOrder order)
{
    if (!position.isSet())
        return 0;
    const std::byte* const at = header + position.byte - 1;
    return position.size == 2 ? int16At(at, order) : int32At(at, order);
}

std::span<const Field> traceFields()
{
    return g_traceFields;
}

std::span<const Field> binaryFields()
{
    return g_binaryFields;
}

QString nameOfByte(int byte)
{
    for (const Field& field : g_traceFields)
        if (field.byte == byte)
            return QString::fromLatin1(field.name);
    return {};
}

} // namespace hv::segy
