#include "host/img/Image3d.h"

#include "host/img/Rearrange.h"

#include <algorithm>
#include <new>

namespace img {

using georef::ScanOrientation;

std::unique_ptr<Image3d> Image3d::create(int width, int height, int length, const QString& name)
{
    std::unique_ptr<Image3d> image(new (std::nothrow) Image3d(name));
    if (!image || !image->allocate(width, height, length))
        return nullptr;
    image->clear();
    image->m_blocSpace.setExtents(width, height, length);
    return image;
}

bool Image3d::resize(int width, int height, int length)
{
    if (!reshape(width, height, length))
        return false;
    m_blocSpace.setExtents(width, height, length);
    return true;
}

bool Image3d::setBlocSpace(const georef::BlocSpace& space)
{
    if (space.width() != width() || space.height() != height() || space.length() != length())
        return false;
    m_blocSpace = space;
    return true;
}

Image3d::FrameShape Image3d::shape(ScanOrientation orientation) const
{
    switch (orientation) {
    case ScanOrientation::Inline:
        return {height(), width(), length()};
    case ScanOrientation::Crossline:
        return {width(), height(), length()};
    case ScanOrientation::Timeslice:
        return {length(), width(), height()};
    }
    return {};
}

std::unique_ptr<Image2d> Image3d::frame(ScanOrientation orientation, int index) const
{
    const FrameShape frameShape = shape(orientation);
    if (index < 0 || index >= frameShape.count)
        return nullptr;
    auto image = Image2d::createUninitialized(frameShape.width, frameShape.height, name());
    if (!image)
        return nullptr;
    switch (orientation) {
    case ScanOrientation::Inline:
        for (int z = 0; z < length(); ++z)
            std::copy_n(data() + offset(0, index, z), width(), image->data() + std::int64_t(z) * width());
        break;
    case ScanOrientation::Crossline:
        // Rows of x follow each other without a gap from one z to the next.
        gather(data() + index, static_cast<std::size_t>(width()), image->data(),
               static_cast<std::size_t>(image->size()));
        break;
    case ScanOrientation::Timeslice:
        std::copy_n(data() + offset(0, 0, index), image->size(), image->data());
        break;
    }
    return image;
}

bool Image3d::setFrame(ScanOrientation orientation, int index, const Image2d& image)
{
    const FrameShape frameShape = shape(orientation);
    if (index < 0 || index >= frameShape.count || image.width() != frameShape.width ||
        image.height() != frameShape.height)
        return false;
    switch (orientation) {
    case ScanOrientation::Inline:
        for (int z = 0; z < length(); ++z)
            std::copy_n(image.data() + std::int64_t(z) * width(), width(), data() + offset(0, index, z));
        break;
    case ScanOrientation::Crossline:
        scatter(image.data(), data() + index, static_cast<std::size_t>(width()),
                static_cast<std::size_t>(image.size()));
        break;
    case ScanOrientation::Timeslice:
        std::copy_n(image.data(), image.size(), data() + offset(0, 0, index));
        break;
    }
    return true;
}

std::unique_ptr<Image3d> Image3d::clone() const
{
    std::unique_ptr<Image3d> image(new (std::nothrow) Image3d(name()));
    if (!image || !image->copyFrom(*this))
        return nullptr;
    image->m_blocSpace = m_blocSpace;
    return image;
}

} // namespace img
