#include "host/blocs/FrameOverlay.h"

#include <array>

namespace hv {

using georef::ScanOrientation;

namespace {

/// Inline, crossline and sample of the cells of a frame are its own index and the two of the pixel, in this order.
struct Axes
{
    std::size_t fixed;
    std::size_t x;
    std::size_t y;
};

Axes axesOf(ScanOrientation orientation)
{
    switch (orientation) {
    case ScanOrientation::Inline:
        return {0, 1, 2};
    case ScanOrientation::Crossline:
        return {1, 0, 2};
    case ScanOrientation::Timeslice:
        break;
    }
    return {2, 1, 0};
}

/// The pixels of a frame of one orientation where one of another orientation crosses it become those of the other one.
void takeCrossing(const georef::BlocSpace& space, ScanOrientation toOrientation, int toIndex, img::Image2d& to,
                  ScanOrientation fromOrientation, int fromIndex, const img::Image2d& from)
{
    if (toOrientation == fromOrientation)
        return;
    const Axes toAxes = axesOf(toOrientation);
    const Axes fromAxes = axesOf(fromOrientation);
    const std::size_t along = 3 - toAxes.fixed - fromAxes.fixed;
    const std::array<int, 3> extents{space.height(), space.width(), space.length()};
    std::array<int, 3> cell{};
    cell[toAxes.fixed] = toIndex;
    cell[fromAxes.fixed] = fromIndex;
    for (cell[along] = 0; cell[along] < extents[along]; ++cell[along])
        to.setValue(cell[toAxes.x], cell[toAxes.y], from.value(cell[fromAxes.x], cell[fromAxes.y]));
}

} // namespace

bool FrameOverlay::put(const georef::BlocSpace& space, ScanOrientation orientation, int index,
                       const img::Image2d& image)
{
    auto copy = image.clone();
    if (!copy)
        return false;
    drop(space, orientation, index, image);
    m_frames[{orientation, index}] = std::move(copy);
    return true;
}

void FrameOverlay::drop(const georef::BlocSpace& space, ScanOrientation orientation, int index,
                        const img::Image2d& image)
{
    m_frames.erase({orientation, index});
    for (auto& [place, frame] : m_frames)
        takeCrossing(space, place.first, place.second, *frame, orientation, index, image);
}

void FrameOverlay::apply(const georef::BlocSpace& space, ScanOrientation orientation, int index,
                         img::Image2d& image) const
{
    if (const auto own = m_frames.find({orientation, index}); own != m_frames.end()) {
        std::copy_n(own->second->data(), own->second->size(), image.data());
        return;
    }
    for (const auto& [place, frame] : m_frames)
        takeCrossing(space, orientation, index, image, place.first, place.second, *frame);
}

} // namespace hv
