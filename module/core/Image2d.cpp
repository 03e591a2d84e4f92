#include "module/Bindings.h"
#include "module/core/PixelAccess.h"
#include "module/core/Reconstruction.h"
#include "module/core/SharedMemory.h"
#include "runtime/TextConversion.h"

#include <cstdio>
#include <new>

namespace bp = boost::python;

namespace python {

namespace {

using img::Image2d;
using ImagePointer = std::shared_ptr<Image2d>;

/// What the first test asks for: the product wraps at 32 bits, so sizes of 2 GiB and more may pass it. They meet the
/// true size before anything is allocated.
std::int64_t wrappedImageBytes(int width, int height)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(width) * static_cast<std::uint32_t>(height) *
                                     sizeof(float));
}

std::int64_t imageBytes(int width, int height)
{
    return byteCount({width, height, sizeof(float)});
}

ImagePointer makeImage(int width, int height, const bp::object& name)
{
    const QString text = requireStr(name, "Image2d, 'name' argument must be of type 'str', not '%s'");
    if (width < 1 || height < 1)
        raise(PyExc_RuntimeError, "Image2d, can not create Image2d of size: (%d, %d)", width, height);
    ImagePointer image(new (std::nothrow) Image2d(text));
    if (!image)
        raiseNotEnoughMemory("Image2d, not enough free memory to allocate new Image2d.");
    if (!isMemoryAvailable(wrappedImageBytes(width, height)))
        raiseNotEnoughMemory("Image2d, not enough free memory to allocate Image2d of size: (%d, %d).", width, height);
    if (!isMemoryAvailable(imageBytes(width, height)) || !image->resize(width, height))
        raiseNotEnoughMemory("Image2d, not enough free memory.");
    return image;
}

bp::object toStr(const Image2d& image)
{
    return textObject(QStringLiteral("strativo_python.Image2d: name = '%1', width = %2, height = %3")
                          .arg(image.name(), QString::number(image.width()), QString::number(image.height())));
}

void clear(Image2d& image)
{
    withoutLock(image, [&] { image.clear(); });
}

void resize(Image2d& image, int width, int height)
{
    if (width < 1 || height < 1)
        raise(PyExc_IndexError, "Image2d.resize(), can not resize to zero or fewer bytes (%d, %d)", width, height);
    if (width == image.width() && height == image.height()) {
        char text[256];
        std::snprintf(text, sizeof text,
                      "Image2d.resize(), called with arguments that match current width and height (%d, %d)", width,
                      height);
        if (PyErr_WarnEx(PyExc_RuntimeWarning, text, 1) < 0)
            raisePending();
        return;
    }
    if (!requireResizable(image.exports(), "Image2d.resize()"))
        raisePending();
    if (!isMemoryAvailable(wrappedImageBytes(width, height), image.byteSize()))
        raiseNotEnoughMemory("Image2d.resize(), not enough free memory to resize Image2d to (%d, %d).", width, height);
    if (!isMemoryAvailable(imageBytes(width, height)) || !image.resize(width, height))
        raise(PyExc_MemoryError, "Image2d.resize(), unable to allocate memory for Image2d of size (%d, %d)", width,
              height);
}

ImagePointer transpose(Image2d& image)
{
    ImagePointer result;
    if (isMemoryAvailableForCopy(image.byteSize()))
        result = withoutLock(image, [&] { return image.transposed(); });
    if (!result)
        raise(PyExc_MemoryError, "Image2d.transpose(), unable to allocate memory for transposed Image2d");
    return result;
}

bp::object reduce(const bp::object& self)
{
    const Image2d& image = bp::extract<const Image2d&>(self);
    const bp::object pixels =
        owned(PyBytes_FromStringAndSize(reinterpret_cast<const char*>(image.data()), image.byteSize()));
    return reduction(self, bp::make_tuple(image.width(), image.height(), textState(image.name()), pixels));
}

void setState(const bp::object& self, const bp::object& state)
{
    const bp::tuple values = restoredValues(self, state, 4);
    const bp::object imageClass{bp::handle<>(bp::borrowed(reinterpret_cast<PyObject*>(HeldInstance<Image2d>::type())))};
    const QString name = textFromState(values[2]);
    imageClass.attr("__init__")(self, bp::object(values[0]), bp::object(values[1]));
    Image2d& image = bp::extract<Image2d&>(self);
    image.setName(name);
    restorePixels(image, values[3]);
}

} // namespace

void bindImage2d()
{
    bp::class_<Image2d, bp::bases<FloatImage>, ImagePointer, boost::noncopyable> imageClass(
        "Image2d",
        "An image of width x height pixels of 32-bit floats: a map of a horizon, a frame of a volume.\n\n"
        "image[x, y] reads and writes one pixel; it is element y * width + x of the buffer. numpy.asarray(image) is an "
        "array of shape (height, width) over the same pixels, without a copy: array[y, x] is image[x, y]. While such a "
        "view exists the image can not be resized. Images can be copied and pickled.",
        bp::no_init);
    imageClass
        .def("__init__",
             bp::make_constructor(makeImage, bp::default_call_policies(),
                                  (bp::arg("width"), bp::arg("height"), bp::arg("name") = "")),
             "__init__(width: int, height: int, name: str = '') -> None\n\n"
             "A new image; every pixel is NO_VALUE.\n\n"
             "Raises RuntimeError when an extent is below 1, TypeError when name is not a str, MemoryError when memory "
             "is short.")
        .def("__str__", toStr, bp::args("self"), "__str__() -> str\n\nName and size.")
        .def("clear", clear, bp::args("self"), "clear() -> None\n\nSets every pixel to NO_VALUE (-9999.0).")
        .def("resize", resize, bp::args("self", "width", "height"),
             "resize(width: int, height: int) -> None\n\n"
             "Other extents. Pixels inside both extents stay at their (x, y), new ones are NO_VALUE. Extents that are "
             "the current ones only issue a RuntimeWarning.\n\n"
             "Raises IndexError when an extent is below 1, BufferError while views of the pixels exist, MemoryError "
             "when memory is short; the image is then as it was.")
        .def("transpose", transpose, bp::args("self"),
             "transpose() -> Image2d\n\nA new image of the same name with x and y exchanged.\n\n"
             "Raises MemoryError when memory is short.")
        .def("__reduce__", reduce, bp::args("self"), "__reduce__() -> tuple\n\nFor pickle and copy.")
        .def("__setstate__", setState, bp::args("self", "state"),
             "__setstate__(state: tuple) -> None\n\nFor pickle and copy.");
    auto* type = reinterpret_cast<PyTypeObject*>(imageClass.ptr());
    HeldInstance<Image2d>::adopt(type);
    installImageBuffer<Image2d>(type);
    PixelAccess<Image2d>::install(
        type, "getValue(x: int, y: int) -> float\n\nOne pixel.\n\nRaises IndexError outside the image.",
        "setValue(x: int, y: int, value: float) -> None\n\nSets one pixel.\n\nRaises IndexError outside the image.");
}

} // namespace python
