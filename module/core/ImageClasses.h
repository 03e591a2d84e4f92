#pragma once

#include "host/img/Image3d.h"
#include "runtime/GilLock.h"
#include "runtime/HeldInstance.h"

/// module/core: numbers as scripts see them (geometry values, typed arrays, images, block spaces), one file per Python
/// class.
namespace python {

using FloatImage = img::ImageBase<float>;

/// The image inside an object of either image class or of a Python subclass; null with TypeError pending when
/// __init__ was never called. `self` must be an instance of "_HVImageBaseFloat".
FloatImage* imageOf(PyObject* self);

/// For __setstate__: the pixels as the bytes that __reduce__ wrote. Raises ValueError for another number of them.
void restorePixels(FloatImage& image, const boost::python::object& bytes);

/// Image2d and Image3d as NumPy and memoryview see them: writable 32-bit floats of shape (height, width) or
/// (length, height, width), the image's own storage. A view keeps the image alive and its size fixed.
template <typename Image>
void installImageBuffer(PyTypeObject* type);

/// Runs `work`, which touches the pixels of `image` but no Python object, without the interpreter lock when it takes
/// long enough to be worth it.
template <typename Work>
auto withoutLock(FloatImage& image, Work work)
{
    constexpr std::int64_t WorthwhilePixels = 1 << 16;
    if (image.size() < WorthwhilePixels)
        return work();
    const core::Pin pin(image.exports());
    const GilRelease unlocked;
    return work();
}

} // namespace python
