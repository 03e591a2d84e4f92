#pragma once

#include "host/segy/SampleFormat.h"

#include <span>

namespace hv::segy {

inline constexpr std::int64_t g_textBytes = 3200;
inline constexpr std::int64_t g_binaryBytes = 400;
inline constexpr std::int64_t g_headerBytes = 240;

/// Where a whole number stands in a trace header: its first byte, counted from 1 as the standard does, and its length.
struct Position
{
    /// 0: nowhere.
    int byte = 0;
    /// 2 or 4.
    int size = 4;

    bool isSet() const { return byte > 0; }
    /// It lies in a header.
    bool isValid() const { return byte >= 1 && (size == 2 || size == 4) && byte + size - 1 <= g_headerBytes; }
    friend bool operator==(const Position&, const Position&) = default;
};

/// "189", or "189:2" for a number of two bytes; none when it is no position in a trace header. "0" is no position set.
std::optional<Position> positionFromText(const QString& text);
QString textOf(Position position);

/// The number at a byte that counts from 0; nothing is tested.
std::int32_t int32At(const std::byte* bytes, ByteOrder order);
std::int16_t int16At(const std::byte* bytes, ByteOrder order);
std::uint64_t uint64At(const std::byte* bytes, ByteOrder order);
inline std::uint16_t uint16At(const std::byte* bytes, ByteOrder order)
{
    return static_cast<std::uint16_t>(int16At(bytes, order));
}

/// The number at a valid position of a trace header, 0 at one that is not set.
std::int32_t valueAt(const std::byte* header, Position position, ByteOrder order);

/// A field that the standard names, for previews.
struct Field
{
    /// Counted from 1 in the trace header, from 3201 in the binary header.
    int byte;
    int size;
    const char* name;
};

std::span<const Field> traceFields();
std::span<const Field> binaryFields();
/// "Inline number" for 189; empty where the standard names nothing.
QString nameOfByte(int byte);

namespace at {
inline constexpr Position cdp{21, 4};
inline constexpr Position traceId{29, 2};
inline constexpr Position offset{37, 4};
inline constexpr Position scalar{71, 2};
inline constexpr Position coordinateUnits{89, 2};
inline constexpr Position delay{109, 2};
inline constexpr Position samples{115, 2};
inline constexpr Position interval{117, 2};
inline constexpr Position timeScalar{215, 2};
} // namespace at

} // namespace hv::segy
