#pragma once

#include "host/img/ImageBase.h"

#include <memory>

namespace img {

/// width x height pixels; pixel (x, y) is element y * width + x of the buffer.
class Image2d : public ImageBase<float>
{
public:
    /// No pixels yet.
    explicit Image2d(const QString& name = {}) : ImageBase(name) {}

    /// All pixels are NoValue. Null without storage or with an extent below 1.
    static std::unique_ptr<Image2d> create(int width, int height, const QString& name = {});
    /// The same with undefined content, for a caller who writes every pixel.
    static std::unique_ptr<Image2d> createUninitialized(int width, int height, const QString& name = {});

    /// 0 <= x < width(), 0 <= y < height(), not tested.
    float value(int x, int y) const { return data()[offset(x, y)]; }
    void setValue(int x, int y, float value) { data()[offset(x, y)] = value; }

    /// Content that lies in both extents stays at its (x, y), new pixels are NoValue.
    [[nodiscard]] bool resize(int width, int height) { return reshape(width, height, 1); }

    /// A new image of the same name with x and y exchanged; null without storage.
    std::unique_ptr<Image2d> transposed() const;
    std::unique_ptr<Image2d> clone() const;

private:
    std::int64_t offset(int x, int y) const { return std::int64_t(y) * width() + x; }
};

} // namespace img
