#pragma once

#include "host/core/AlignedBuffer.h"
#include "host/core/ExportCount.h"
#include "host/img/Statistics.h"

#include <QString>

#include <cstdint>

/// host/img: raster data, images of floating-point pixels in two and three dimensions. No files, no colours; a pixel of
/// -9999.0 (NoValue) or not-a-number holds no value.
namespace img {

/// What all images have in common: a name and one contiguous buffer, aligned to 64 bytes, in which x runs fastest.
/// Pixel is float.
///
/// No member throws. Members that need storage return false (or null) when an extent is below 1, the buffer is more
/// than an address can reach or the system refuses; the image is then as it was. An image without storage (fresh from
/// its default constructor) has no pixels.
///
/// While somebody is counted in exports() resizing fails. Not thread-safe: one thread writes or many read.
template <typename Pixel>
class ImageBase
{
public:
    virtual ~ImageBase();
    ImageBase(const ImageBase&) = delete;
    ImageBase& operator=(const ImageBase&) = delete;

    int width() const { return m_width; }
    int height() const { return m_height; }
    /// Pixels in z; 1 in an image of two dimensions.
    int length() const { return m_length; }
    /// Number of pixels.
    std::int64_t size() const { return std::int64_t(m_width) * m_height * m_length; }
    std::int64_t byteSize() const { return size() * static_cast<std::int64_t>(sizeof(Pixel)); }

    const QString& name() const { return m_name; }
    void setName(const QString& name) { m_name = name; }

    /// Valid until the next resize.
    Pixel* data() { return m_buffer.as<Pixel>(); }
    const Pixel* data() const { return m_buffer.as<Pixel>(); }

    void fill(Pixel value);
    /// Copies exactly size() pixels; false when `count` is another number.
    [[nodiscard]] bool fill(const Pixel* pixels, std::int64_t count);
    /// Every pixel becomes NoValue.
    void clear();

    /// See Statistics for what is counted. Each of the four below takes a pass of its own. Nothing is kept for the next
    /// call: most scripts hold a view of the pixels meanwhile, through which they change unseen (as they do through a
    /// plain address), and the four of 1000 x 1000 pixels take 0.6 ms in all.
    Statistics statistics() const;
    double average() const { return statistics().mean; }
    double standardDeviation() const { return statistics().deviation; }
    Pixel minValue() const { return statistics().minimum; }
    Pixel maxValue() const { return statistics().maximum; }

    core::ExportCount& exports() { return m_exports; }
    const core::ExportCount& exports() const { return m_exports; }
    bool isExported() const { return !m_exports.isNone(); }

protected:
    explicit ImageBase(const QString& name) : m_name(name) {}

    /// Other extents and a buffer of undefined content.
    [[nodiscard]] bool allocate(int width, int height, int length);
    /// Other extents: what lies in both the old and the new extents stays where it is, the rest is NoValue.
    [[nodiscard]] bool reshape(int width, int height, int length);
    [[nodiscard]] bool copyFrom(const ImageBase& other);

private:
    int m_width = 0;
    int m_height = 0;
    int m_length = 0;
    core::ExportCount m_exports;
    core::AlignedBuffer m_buffer;
    QString m_name;
};

extern template class ImageBase<float>;

} // namespace img
