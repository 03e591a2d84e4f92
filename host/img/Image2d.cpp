#include "host/img/Image2d.h"

#include "host/img/Rearrange.h"

#include <new>

namespace img {

std::unique_ptr<Image2d> Image2d::createUninitialized(int width, int height, const QString& name)
{
    std::unique_ptr<Image2d> image(new (std::nothrow) Image2d(name));
    return image && image->allocate(width, height, 1) ? std::move(image) : nullptr;
}

std::unique_ptr<Image2d> Image2d::create(int width, int height, const QString& name)
{
    auto image = createUninitialized(width, height, name);
    if (image)
        image->clear();
    return image;
}

std::unique_ptr<Image2d> Image2d::transposed() const
{
    auto image = createUninitialized(height(), width(), name());
    if (image)
        transpose(data(), image->data(), static_cast<std::size_t>(width()), static_cast<std::size_t>(height()));
    return image;
}

std::unique_ptr<Image2d> Image2d::clone() const
{
    std::unique_ptr<Image2d> image(new (std::nothrow) Image2d(name()));
    return image && image->copyFrom(*this) ? std::move(image) : nullptr;
}

} // namespace img
