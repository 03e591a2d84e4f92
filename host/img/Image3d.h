#pragma once

#include "host/georef/BlocSpace.h"
#include "host/img/Image2d.h"

namespace img {

/// width x height x length pixels with a place in the survey. x counts crosslines, y inlines, z vertical samples, as in
/// the block space; pixel (x, y, z) is element (z * height + y) * width + x of the buffer.
///
/// Frames cut the cube across one axis:
///
/// | orientation | fixed | image width | image height |
/// |-------------|-------|-------------|--------------|
/// | Inline      | y     | x           | z            |
/// | Crossline   | x     | y           | z            |
/// | Timeslice   | z     | x           | y            |
class Image3d : public ImageBase<float>
{
public:
    /// No pixels yet.
    explicit Image3d(const QString& name = {}) : ImageBase(name), m_blocSpace(0, 0, 0) {}

    /// All pixels are NoValue, the block space is the default one of these extents. Null without storage or with an
    /// extent below 1.
    static std::unique_ptr<Image3d> create(int width, int height, int length, const QString& name = {});

    /// Inside the extents, not tested.
    float value(int x, int y, int z) const { return data()[offset(x, y, z)]; }
    void setValue(int x, int y, int z, float value) { data()[offset(x, y, z)] = value; }

    /// Content that lies in both extents stays at its (x, y, z), new pixels are NoValue. The block space takes the new
    /// extents and keeps its transforms: a pixel stays where it is in the survey.
    [[nodiscard]] bool resize(int width, int height, int length);

    const georef::BlocSpace& blocSpace() const { return m_blocSpace; }
    /// Refused (false) when its extents are not those of the cube.
    [[nodiscard]] bool setBlocSpace(const georef::BlocSpace& space);

    /// How many frames an orientation has and how large they are; 0 for a number that is no orientation.
    int frameCount(georef::ScanOrientation orientation) const { return shape(orientation).count; }
    int frameWidth(georef::ScanOrientation orientation) const { return shape(orientation).width; }
    int frameHeight(georef::ScanOrientation orientation) const { return shape(orientation).height; }

    /// A copy of one frame. Null without storage or for an index outside [0, frameCount()).
    std::unique_ptr<Image2d> frame(georef::ScanOrientation orientation, int index) const;
    /// Overwrites one frame. False, and nothing written, when the index or the size of the image does not fit.
    [[nodiscard]] bool setFrame(georef::ScanOrientation orientation, int index, const Image2d& image);

    std::unique_ptr<Image3d> clone() const;

private:
    struct FrameShape
    {
        int count = 0;
        int width = 0;
        int height = 0;
    };

    std::int64_t offset(int x, int y, int z) const { return (std::int64_t(z) * height() + y) * width() + x; }
    FrameShape shape(georef::ScanOrientation orientation) const;

    georef::BlocSpace m_blocSpace;
};

} // namespace img
