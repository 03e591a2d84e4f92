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

using georef::BlocSpace;
using georef::ScanOrientation;
using img::Image2d;
using img::Image3d;
using ImagePointer = std::shared_ptr<Image3d>;

std::int64_t imageBytes(int width, int height, int length = 1)
{
    return byteCount({width, height, length, sizeof(float)});
}

ImagePointer makeImage(int width, int height, int length)
{
    if (width < 1 || height < 1 || length < 1)
        raise(PyExc_IndexError, "Image3d, unable to create 3d image with dimensions: (%d, %d, %d)", width, height,
              length);
    ImagePointer image(new (std::nothrow) Image3d);
    if (!image)
        raiseNotEnoughMemory("Image3d, not enough memory.");
    if (!isMemoryAvailable(imageBytes(width, height, length)))
        raiseNotEnoughMemory("Image3d, not enough free memory for 3d image with dimensions: (%d, %d, %d).", width,
                             height, length);
    if (!image->resize(width, height, length))
        raiseNotEnoughMemory("Image3d, not enough free memory.");
    return image;
}

bp::object toStr(const Image3d& image)
{
    return textObject(QStringLiteral("strativo_python.Image3d, width = %1, height = %2, length = %3")
                          .arg(image.width())
                          .arg(image.height())
                          .arg(image.length()));
}

void clear(Image3d& image)
{
    withoutLock(image, [&] { image.clear(); });
}

void resize(Image3d& image, int width, int height, int length)
{
    if (width < 1 || height < 1 || length < 1)
        raise(PyExc_IndexError, "Image3d.resize(), can not resize to zero or fewer bytes (%d, %d, %d)", width, height,
              length);
    if (width == image.width() && height == image.height() && length == image.length()) {
        char text[256];
        std::snprintf(
            text, sizeof text,
            "Image3d.resize(), called with arguments that match current width, height, and length (%d, %d, %d)", width,
            height, length);
        if (PyErr_WarnEx(PyExc_RuntimeWarning, text, 1) < 0)
            raisePending();
        return;
    }
    if (!requireResizable(image.exports(), "Image3d.resize()"))
        raisePending();
    if (!isMemoryAvailable(imageBytes(width, height, length), image.byteSize()))
        raiseNotEnoughMemory("Image3d.resize(), not enough memory to resize to size (%d, %d, %d).", width, height,
                             length);
    if (!image.resize(width, height, length))
        raiseNotEnoughMemory("Image3d.resize(), unable to allocate sufficient memory for size (%d, %d, %d).", width,
                             height, length);
}

/// Null for a number that is no orientation.
const char* orientationName(int orientation)
{
    switch (static_cast<ScanOrientation>(orientation)) {
    case ScanOrientation::Inline:
        return "Inline";
    case ScanOrientation::Crossline:
        return "Crossline";
    case ScanOrientation::Timeslice:
        return "Timeslice";
    }
    return nullptr;
}

/// A frame that does not exist is reported as one that could not be made; the cause tells them apart.
std::shared_ptr<Image2d> getImage(Image3d& image, int orientation, int frame)
{
    if (!orientationName(orientation))
        raise(PyExc_RuntimeError, "Image3d, getImage() unknown enumeration supplied.");
    const auto scan = static_cast<ScanOrientation>(orientation);
    std::shared_ptr<Image2d> result;
    if (!isValidIndex(frame, image.frameCount(scan)))
        PyErr_Format(PyExc_IndexError, "frame index %d out of range (0 -> %d)", frame, image.frameCount(scan) - 1);
    else if (isMemoryAvailableForCopy(imageBytes(image.frameWidth(scan), image.frameHeight(scan))))
        result = withoutLock(image, [&] { return image.frame(scan, frame); });
    if (!result)
        raiseFromPending(PyExc_MemoryError, "Image3d, getImage() unable to allocate memory for 'Image2d' for frame %d",
                         frame);
    return result;
}

void setImage(Image3d& image, int orientation, int frame, const bp::object& frameImage)
{
    if (frameImage.is_none())
        raise(PyExc_RuntimeError, "Image3d, setImage() expected 'Image2d' but got 'None' instead");
    const bp::extract<Image2d&> given(frameImage);
    if (!given.check())
        raise(PyExc_TypeError, "Image3d, setImage() expected 'Image2d' but got '%s' instead", typeName(frameImage));
    Image2d& source = given();
    if (!orientationName(orientation))
        raise(PyExc_RuntimeError, "Image3d, setImage() unknown enumeration supplied.");
    const auto scan = static_cast<ScanOrientation>(orientation);
    if (!isValidIndex(frame, image.frameCount(scan)))
        raise(PyExc_IndexError, "Image3d, setImage() got invalid frame index %d", frame);
    const int width = image.frameWidth(scan);
    const int height = image.frameHeight(scan);
    if (source.width() != width || source.height() != height)
        raise(PyExc_IndexError, "Image3d, setImage() incompatible sizes (%d, %d) and (%d, %d) for orientation '%s'",
              width, height, source.width(), source.height(), orientationName(orientation));
    const core::Pin pin(image.exports());
    const bool written = withoutLock(source, [&] { return image.setFrame(scan, frame, source); });
    if (!written)
        raise(PyExc_RuntimeError, "Image3d, setImage() unable to write frame %d", frame);
}

void setBlockSpace(Image3d& image, const BlocSpace& space)
{
    if (!image.setBlocSpace(space))
        raise(PyExc_ValueError,
              "Image3d.setBlockSpace(), the dimensions (%d, %d, %d) are not those of the image (%d, %d, %d)",
              space.width(), space.height(), space.length(), image.width(), image.height(), image.length());
}

void setBlockSpaceExtents(Image3d& image, int width, int height, int length)
{
    setBlockSpace(image, BlocSpace(width, height, length));
}

BlocSpace blockSpace(const Image3d& image)
{
    return image.blocSpace();
}

bp::object reduce(const bp::object& self)
{
    const Image3d& image = bp::extract<const Image3d&>(self);
    const bp::object pixels =
        owned(PyBytes_FromStringAndSize(reinterpret_cast<const char*>(image.data()), image.byteSize()));
    return reduction(self, bp::make_tuple(image.width(), image.height(), image.length(), textState(image.name()),
                                          image.blocSpace(), pixels));
}

void setState(const bp::object& self, const bp::object& state)
{
    const bp::tuple values = restoredValues(self, state, 6);
    const bp::object imageClass{bp::handle<>(bp::borrowed(reinterpret_cast<PyObject*>(HeldInstance<Image3d>::type())))};
    imageClass.attr("__init__")(self, bp::object(values[0]), bp::object(values[1]), bp::object(values[2]));
    Image3d& image = bp::extract<Image3d&>(self);
    image.setName(textFromState(values[3]));
    setBlockSpace(image, bp::extract<const BlocSpace&>(values[4]));
    restorePixels(image, values[5]);
}

} // namespace

void bindImage3d()
{
    bp::class_<Image3d, bp::bases<FloatImage>, ImagePointer, boost::noncopyable> imageClass(
        "Image3d",
        "A cube of width x height x length pixels of 32-bit floats with a block space that places it in the survey.\n\n"
        "x counts crosslines, y inlines and z vertical samples. image[x, y, z] reads and writes one pixel; it is "
        "element (z * height + y) * width + x of the buffer. numpy.asarray(image) is an array of shape (length, "
        "height, "
        "width) over the same pixels, without a copy: array[z, y, x] is image[x, y, z]. While such a view exists the "
        "image can not be resized. Images can be copied and pickled.",
        bp::no_init);
    imageClass
        .def("__init__",
             bp::make_constructor(makeImage, bp::default_call_policies(),
                                  (bp::arg("width"), bp::arg("height"), bp::arg("length"))),
             "__init__(width: int, height: int, length: int) -> None\n\n"
             "A new cube; every pixel is NO_VALUE, the block space is a new one of these extents.\n\n"
             "Raises IndexError when an extent is below 1, MemoryError when memory is short.")
        .def("__str__", toStr, bp::args("self"), "__str__() -> str\n\nThe size.")
        .def("clear", clear, bp::args("self"), "clear() -> None\n\nSets every pixel to NO_VALUE (-9999.0).")
        .def("getImage", getImage, bp::args("self", "orientation", "frame"),
             "getImage(orientation: ScanOrientation, frame: int) -> Image2d\n\n"
             "A copy of one frame: the inline frame y = frame has x to the right and z down, the crossline frame "
             "x = frame y to the right and z down, the time slice z = frame x to the right and y down.\n\n"
             "Raises RuntimeError for an unknown orientation, MemoryError when the frame does not exist or memory is "
             "short.")
        .def("setImage", setImage, bp::args("self", "orientation", "frame", "image"),
             "setImage(orientation: ScanOrientation, frame: int, image: Image2d) -> None\n\n"
             "Overwrites one frame; see getImage() for the axes.\n\n"
             "Raises IndexError when the frame does not exist or the image has another size, RuntimeError for None and "
             "for an unknown orientation.")
        .def("resize", resize, bp::args("self", "width", "height", "length"),
             "resize(width: int, height: int, length: int) -> None\n\n"
             "Other extents. Pixels inside both extents stay at their (x, y, z), new ones are NO_VALUE; the block "
             "space takes the new extents and keeps its transforms. Extents that are the current ones only issue a "
             "RuntimeWarning.\n\n"
             "Raises IndexError when an extent is below 1, BufferError while views of the pixels exist, MemoryError "
             "when memory is short; the image is then as it was.")
        .def("setBlockSpace", setBlockSpace, bp::args("self", "blockSpace"),
             "setBlockSpace(blockSpace: BlockSpace) -> None\n\nPlaces the cube with a copy of blockSpace.\n\n"
             "Raises ValueError when its extents are not those of the cube.")
        .def("setBlockSpace", setBlockSpaceExtents, bp::args("self", "width", "height", "length"),
             "setBlockSpace(width: int, height: int, length: int) -> None\n\n"
             "Places the cube with a new block space of these extents.\n\n"
             "Raises ValueError when they are not those of the cube.")
        .add_property("length", &Image3d::length, "int: Number of pixels in z. Read-only.")
        .add_property("blockSpace", blockSpace, "BlockSpace: A copy of the block space of the cube. Read-only.")
        .def("__reduce__", reduce, bp::args("self"), "__reduce__() -> tuple\n\nFor pickle and copy.")
        .def("__setstate__", setState, bp::args("self", "state"),
             "__setstate__(state: tuple) -> None\n\nFor pickle and copy.");
    auto* type = reinterpret_cast<PyTypeObject*>(imageClass.ptr());
    HeldInstance<Image3d>::adopt(type);
    installImageBuffer<Image3d>(type);
    PixelAccess<Image3d>::install(
        type, "getValue(x: int, y: int, z: int) -> float\n\nOne pixel.\n\nRaises IndexError outside the cube.",
        "setValue(x: int, y: int, z: int, value: float) -> None\n\nSets one pixel.\n\n"
        "Raises IndexError outside the cube.");
}

} // namespace python
