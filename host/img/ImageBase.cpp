#include "host/img/ImageBase.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace img {

namespace {

/// -1 for extents that no buffer can have.
std::int64_t bufferBytes(int width, int height, int length, std::size_t pixelSize)
{
    if (width < 1 || height < 1 || length < 1)
        return -1;
    const std::int64_t most = std::numeric_limits<std::int64_t>::max() / static_cast<std::int64_t>(pixelSize);
    const std::int64_t plane = std::int64_t(width) * height;
    return plane > most / length ? -1 : plane * length * static_cast<std::int64_t>(pixelSize);
}

} // namespace

template <typename Pixel>
ImageBase<Pixel>::~ImageBase() = default;

template <typename Pixel>
void ImageBase<Pixel>::fill(Pixel value)
{
    std::fill_n(data(), size(), value);
}

template <typename Pixel>
bool ImageBase<Pixel>::fill(const Pixel* pixels, std::int64_t count)
{
    if (count != size())
        return false;
    // The pixels may come from a view of this very image.
    if (count > 0)
        std::memmove(data(), pixels, static_cast<std::size_t>(byteSize()));
    return true;
}

template <typename Pixel>
void ImageBase<Pixel>::clear()
{
    fill(NoValue);
}

template <typename Pixel>
Statistics ImageBase<Pixel>::statistics() const
{
    return img::statistics(data(), size());
}

template <typename Pixel>
bool ImageBase<Pixel>::allocate(int width, int height, int length)
{
    if (isExported())
        return false;
    auto buffer = core::AlignedBuffer::allocate(bufferBytes(width, height, length, sizeof(Pixel)));
    if (!buffer)
        return false;
    m_buffer = std::move(buffer);
    m_width = width;
    m_height = height;
    m_length = length;
    return true;
}

template <typename Pixel>
bool ImageBase<Pixel>::reshape(int width, int height, int length)
{
    if (isExported())
        return false;
    auto buffer = core::AlignedBuffer::allocate(bufferBytes(width, height, length, sizeof(Pixel)));
    if (!buffer)
        return false;
    const int keptX = std::min(width, m_width);
    const int keptY = std::min(height, m_height);
    const int keptZ = std::min(length, m_length);
    Pixel* target = buffer.as<Pixel>();
    for (int z = 0; z < length; ++z)
        for (int y = 0; y < height; ++y, target += width) {
            const int kept = z < keptZ && y < keptY ? keptX : 0;
            const std::int64_t row = std::int64_t(z) * m_height + y;
            if (kept > 0)
                std::copy_n(data() + row * m_width, kept, target);
            std::fill(target + kept, target + width, NoValue);
        }
    m_buffer = std::move(buffer);
    m_width = width;
    m_height = height;
    m_length = length;
    return true;
}

template <typename Pixel>
bool ImageBase<Pixel>::copyFrom(const ImageBase& other)
{
    if (other.size() > 0 && !allocate(other.m_width, other.m_height, other.m_length))
        return false;
    m_name = other.m_name;
    return fill(other.data(), other.size());
}

template class ImageBase<float>;

} // namespace img
