#pragma once

#include "host/volume/VolumeHeader.h"

#include <array>

namespace hv {

/// Which arrays a file has besides the inline order, which is always there.
struct VolumeOrders
{
    bool crossline = true;
    bool timeslice = true;

    int count() const { return 1 + int(crossline) + int(timeslice); }
    friend bool operator==(const VolumeOrders&, const VolumeOrders&) = default;
};

/// One array of all samples: frame after frame of one orientation.
struct VolumeOrder
{
    std::int64_t offset = 0; ///< in the file; a multiple of volumePage
    /// False while its samples may be others than those of the inline order, which are the truth: it is not read.
    bool isWhole = true;
    friend bool operator==(const VolumeOrder&, const VolumeOrder&) = default;
};

/// Where the arrays of a file lie.
class VolumeLayout
{
public:
    VolumeLayout() = default;
    /// One array after the other, behind the header.
    static VolumeLayout make(const georef::BlocSpace& space, const VolumeOrders& orders);

    const std::optional<VolumeOrder>& order(georef::ScanOrientation orientation) const
    {
        return m_orders[static_cast<std::size_t>(orientation)];
    }
    std::optional<VolumeOrder>& order(georef::ScanOrientation orientation)
    {
        return m_orders[static_cast<std::size_t>(orientation)];
    }
    VolumeOrders orders() const
    {
        return {order(georef::ScanOrientation::Crossline).has_value(),
                order(georef::ScanOrientation::Timeslice).has_value()};
    }
    /// The end of the last array.
    std::int64_t fileSize(const georef::BlocSpace& space) const;

    friend bool operator==(const VolumeLayout&, const VolumeLayout&) = default;

private:
    std::array<std::optional<VolumeOrder>, 3> m_orders;
};

inline constexpr std::array<georef::ScanOrientation, 3> scanOrientations{
    georef::ScanOrientation::Inline, georef::ScanOrientation::Crossline, georef::ScanOrientation::Timeslice};

inline constexpr std::int64_t volumePage = 4096;
/// The header is one line of text, filled up with spaces to this length, and stands in the file twice, so that writing
/// it anew leaves one of the two readable whenever the program ends.
inline constexpr std::int64_t volumeHeaderBytes = 65536;
inline constexpr std::int64_t volumeHeaderCopies = 2;

/// `value` up to the next page.
constexpr std::int64_t toVolumePage(std::int64_t value)
{
    return (value + volumePage - 1) / volumePage * volumePage;
}

} // namespace hv
