#include "module/core/ImageClasses.h"
#include "runtime/ClassSlots.h"

namespace python {

namespace {

/// Lives as long as the view that it describes.
struct ViewLayout
{
    Py_ssize_t shape[3];
    Py_ssize_t strides[3];
    FloatImage* image;
};

void describe(ViewLayout& layout, const img::Image2d& image)
{
    layout.shape[0] = image.height();
    layout.shape[1] = image.width();
}

void describe(ViewLayout& layout, const img::Image3d& image)
{
    layout.shape[0] = image.length();
    layout.shape[1] = image.height();
    layout.shape[2] = image.width();
}

template <typename Image>
int getBuffer(PyObject* self, Py_buffer* view, int flags)
{
    constexpr int Dimensions = std::is_same_v<Image, img::Image2d> ? 2 : 3;
    view->obj = nullptr;
    FloatImage* image = imageOf(self);
    if (!image)
        return -1;
    const auto wants = [flags](int flag) { return (flags & flag) == flag; };
    if (wants(PyBUF_F_CONTIGUOUS) && !wants(PyBUF_C_CONTIGUOUS)) {
        PyErr_SetString(PyExc_BufferError, "the pixels of an image are stored row by row, not column by column");
        return -1;
    }
    auto* layout = static_cast<ViewLayout*>(PyMem_Malloc(sizeof(ViewLayout)));
    if (!layout) {
        PyErr_NoMemory();
        return -1;
    }
    describe(*layout, static_cast<Image&>(*image));
    Py_ssize_t stride = sizeof(float);
    for (int axis = Dimensions - 1; axis >= 0; --axis) {
        layout->strides[axis] = stride;
        stride *= layout->shape[axis];
    }
    layout->image = image;
    static char g_format[] = "f";
    view->buf = image->data();
    view->len = image->byteSize();
    view->itemsize = sizeof(float);
    view->readonly = 0;
    view->format = wants(PyBUF_FORMAT) ? g_format : nullptr;
    view->ndim = wants(PyBUF_ND) ? Dimensions : 1;
    view->shape = wants(PyBUF_ND) ? layout->shape : nullptr;
    view->strides = wants(PyBUF_STRIDES) ? layout->strides : nullptr;
    view->suboffsets = nullptr;
    view->internal = layout;
    image->addExport();
    Py_INCREF(self);
    view->obj = self;
    return 0;
}

void releaseBuffer(PyObject* /*self*/, Py_buffer* view)
{
    auto* layout = static_cast<ViewLayout*>(view->internal);
    layout->image->releaseExport();
    PyMem_Free(layout);
}

} // namespace

template <typename Image>
void installImageBuffer(PyTypeObject* type)
{
    installBuffer(type, getBuffer<Image>, releaseBuffer);
}

template void installImageBuffer<img::Image2d>(PyTypeObject* type);
template void installImageBuffer<img::Image3d>(PyTypeObject* type);

} // namespace python
