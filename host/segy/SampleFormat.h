#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
#include <optional>

/// host/segy: SEG-Y files of revisions 0 to 2 (SEG Technical Standards Committee, "SEG-Y_r2.0: SEG-Y revision 2.0
/// Data Exchange format", 2017): looking through them, reading them into volumes, and writing revision 1. Files,
/// no windows; everything runs on any thread.
///
/// Reading follows no library's idea of a survey: lines may be ragged, traces missing or doubled, numbers anywhere in
/// the trace header. libsegyio converts the texts and fills header fields.
namespace hv::segy {

/// The most significant byte first is the standard's own order.
enum class ByteOrder
{
    Big,
    Little,
};

/// How samples are stored; the numbers are those of the binary header.
enum class SampleFormat
{
    Ibm = 1, ///< hexadecimal floating point of 4 bytes
    Int32 = 2,
    Int16 = 3,
    Ieee = 5,
    Ieee64 = 6,
    Int8 = 8,
    UInt32 = 10,
    UInt16 = 11,
    UInt8 = 16,
};

/// The format of a code of the binary header; none for those that are not read.
std::optional<SampleFormat> sampleFormat(int code);
std::size_t bytesPerSample(SampleFormat format);
/// "IBM floating point, 4 bytes"
QString nameOf(SampleFormat format);
QString nameOf(ByteOrder order);

/// `count` samples as floats, rounded to nearest. What a float cannot hold becomes the largest one of its sign, what
/// is too small becomes 0. The source may lie anywhere; it must not overlap the target.
void decode(SampleFormat format, ByteOrder order, const std::byte* source, float* target, std::size_t count);

/// The reverse for Ibm and Ieee, big-endian, rounded to nearest (ties to even). Infinity becomes the largest IBM
/// number.
void encode(SampleFormat format, const float* source, std::byte* target, std::size_t count);

} // namespace hv::segy
