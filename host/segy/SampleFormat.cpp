#include "host/segy/SampleFormat.h"

#include "host/segy/SampleKernels.h"

#include <array>
#include <bit>

namespace hv::segy {

namespace {

static_assert(std::endian::native == std::endian::little, "the loops swap what is big-endian in the file");

struct Row
{
    SampleFormat format;
    std::size_t bytes;
    const char* name;
};

constexpr std::array g_formats{
    Row{SampleFormat::Ibm, 4, "IBM floating point, 4 bytes"},
    Row{SampleFormat::Int32, 4, "whole numbers of 4 bytes"},
    Row{SampleFormat::Int16, 2, "whole numbers of 2 bytes"},
    Row{SampleFormat::Ieee, 4, "IEEE floating point, 4 bytes"},
    Row{SampleFormat::Ieee64, 8, "IEEE floating point, 8 bytes"},
    Row{SampleFormat::Int8, 1, "whole numbers of 1 byte"},
    Row{SampleFormat::UInt32, 4, "whole numbers of 4 bytes without sign"},
    Row{SampleFormat::UInt16, 2, "whole numbers of 2 bytes without sign"},
    Row{SampleFormat::UInt8, 1, "whole numbers of 1 byte without sign"},
};

const Row& row(SampleFormat format)
{
    for (const Row& each : g_formats)
        if (each.format == format)
            return each;
    return g_formats.front();
}

template <class Bits>
const Bits* as(const std::byte* bytes)
{
    return reinterpret_cast<const Bits*>(bytes);
}

} // namespace

std::optional<SampleFormat> sampleFormat(int code)
{
    for (const Row& each : g_formats)
        if (static_cast<int>(each.format) == code)
            return each.format;
    return {};
}

std::size_t bytesPerSample(SampleFormat format)
{
    return row(format).bytes;
}

QString nameOf(SampleFormat format)
{
    return QString::fromLatin1(row(format).name);
}

QString nameOf(ByteOrder order)
{
    return order == ByteOrder::Big ? QStringLiteral("big-endian") : QStringLiteral("little-endian");
}

void decode(SampleFormat format, ByteOrder order, const std::byte* source, float* target, std::size_t count)
{
    using namespace kernels;
    const bool swap = order == ByteOrder::Big;
    switch (format) {
    case SampleFormat::Ibm:
        return fromIbm(as<Bits32>(source), target, count, swap);
    case SampleFormat::Int32:
        return fromInt32(as<Bits32>(source), target, count, swap);
    case SampleFormat::Int16:
        return fromInt16(as<Bits16>(source), target, count, swap);
    case SampleFormat::Ieee:
        return fromIeee(as<Bits32>(source), target, count, swap);
    case SampleFormat::Ieee64:
        return fromIeee64(as<Bits64>(source), target, count, swap);
    case SampleFormat::Int8:
        return fromInt8(as<Bits8>(source), target, count);
    case SampleFormat::UInt32:
        return fromUInt32(as<Bits32>(source), target, count, swap);
    case SampleFormat::UInt16:
        return fromUInt16(as<Bits16>(source), target, count, swap);
    case SampleFormat::UInt8:
        return fromUInt8(as<Bits8>(source), target, count);
    }
}

void encode(SampleFormat format, const float* source, std::byte* target, std::size_t count)
{
    auto* bits = reinterpret_cast<kernels::Bits32*>(target);
    if (format == SampleFormat::Ibm)
        kernels::toIbm(source, bits, count);
    else
        kernels::toIeee(source, bits, count);
}

} // namespace hv::segy
