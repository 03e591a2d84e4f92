#include "host/arrays/ArrayVolume.h"

#include <array>
#include <limits>

namespace hv::arrays {

std::optional<NumberType> NumberType::fromText(const QString& text)
{
    using segy::SampleFormat;
    constexpr std::array<std::pair<const char*, SampleFormat>, 8> types{{{"f4", SampleFormat::Ieee},
                                                                         {"f8", SampleFormat::Ieee64},
                                                                         {"i1", SampleFormat::Int8},
                                                                         {"i2", SampleFormat::Int16},
                                                                         {"i4", SampleFormat::Int32},
                                                                         {"u1", SampleFormat::UInt8},
                                                                         {"u2", SampleFormat::UInt16},
                                                                         {"u4", SampleFormat::UInt32}}};
    if (text.size() != 3)
        return {};
    for (const auto& [name, format] : types)
        if (text.mid(1) == QLatin1String(name))
            return NumberType{format,
                              text.startsWith(QLatin1Char('>')) ? segy::ByteOrder::Big : segy::ByteOrder::Little};
    return {};
}

void NumberType::toFloats(const std::byte* source, float* target, std::int64_t count) const
{
    segy::decode(format, order, source, target, static_cast<std::size_t>(count));
}

bool Extents::isValid() const
{
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    const auto isGood = [](std::int64_t extent) { return extent >= 1 && extent <= most; };
    return isGood(inlines) && isGood(crosslines) && isGood(samples) &&
           sampleBytes(
               georef::BlocSpace(static_cast<int>(crosslines), static_cast<int>(inlines), static_cast<int>(samples)));
}

VolumeHeader plainHeader(const Extents& extents, const QString& history)
{
    VolumeHeader header;
    header.space = georef::BlocSpace(static_cast<int>(extents.crosslines), static_cast<int>(extents.inlines),
                                     static_cast<int>(extents.samples));
    header.note(history);
    return header;
}

} // namespace hv::arrays
