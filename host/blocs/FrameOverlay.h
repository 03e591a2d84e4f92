#pragma once

#include "host/img/Image2d.h"
#include "host/volume/VolumeHeader.h"

#include <map>
#include <memory>

namespace hv {

/// Frames that stand in memory in place of what a volume's file holds. Frames of several orientations cross: each holds
/// at its crossings what was put in last, so that the order in which they are looked at does not matter.
class FrameOverlay
{
public:
    bool isEmpty() const { return m_frames.empty(); }
    void clear() { m_frames.clear(); }

    /// Takes a copy; false without memory for one, and then nothing has changed.
    bool put(const georef::BlocSpace& space, georef::ScanOrientation orientation, int index, const img::Image2d& image);
    /// The frame is to be taken from the file again; those that it crosses take up `image`, which is what the file has.
    void drop(const georef::BlocSpace& space, georef::ScanOrientation orientation, int index,
              const img::Image2d& image);

    /// Brings a frame of the file up to date.
    void apply(const georef::BlocSpace& space, georef::ScanOrientation orientation, int index,
               img::Image2d& image) const;

private:
    using Place = std::pair<georef::ScanOrientation, int>;

    std::map<Place, std::unique_ptr<img::Image2d>> m_frames;
};

} // namespace hv
