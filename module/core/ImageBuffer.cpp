#include "module/core/ImageClasses.h"
#include "module/core/SharedMemory.h"
#include "runtime/ClassSlots.h"

namespace python {

namespace {

MemoryLayout layoutOf(img::Image2d& image)
{
    return {image.data(), "f", sizeof(float), 2, {image.height(), image.width(), 0}};
}

MemoryLayout layoutOf(img::Image3d& image)
{
    return {image.data(), "f", sizeof(float), 3, {image.length(), image.height(), image.width()}};
}

template <typename Image>
int getBuffer(PyObject* self, Py_buffer* view, int flags)
{
    view->obj = nullptr;
    FloatImage* image = imageOf(self);
    return image ? exportMemory(self, std::is_same_v<Image, img::Image2d> ? "Image2d" : "Image3d", image->exports(),
                                layoutOf(static_cast<Image&>(*image)), view, flags)
                 : -1;
}

} // namespace

template <typename Image>
void installImageBuffer(PyTypeObject* type)
{
    installBuffer(type, getBuffer<Image>, releaseMemory);
}

template void installImageBuffer<img::Image2d>(PyTypeObject* type);
template void installImageBuffer<img::Image3d>(PyTypeObject* type);

} // namespace python
