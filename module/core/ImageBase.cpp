#include "module/Bindings.h"
#include "module/core/ImageClasses.h"
#include "module/core/NumberBuffer.h"
#include "runtime/ClassSlots.h"
#include "runtime/Errors.h"
#include "runtime/NumberArguments.h"

#include <cstring>
#include <new>

namespace bp = boost::python;

namespace python {

FloatImage* imageOf(PyObject* self)
{
    FloatImage* image = HeldInstance<img::Image2d>::check(self) ? HeldInstance<img::Image2d>::get(self)
                        : HeldInstance<img::Image3d>::check(self)
                            ? static_cast<FloatImage*>(HeldInstance<img::Image3d>::get(self))
                            : nullptr;
    if (!image)
        PyErr_Format(PyExc_TypeError, "%s, the image was not initialized: __init__ was not called", typeName(self));
    return image;
}

void restorePixels(FloatImage& image, const bp::object& bytes)
{
    if (!PyBytes_Check(bytes.ptr()) || PyBytes_GET_SIZE(bytes.ptr()) != image.byteSize())
        raise(PyExc_ValueError, "__setstate__(), the pixels of the image do not fit its size");
    std::memcpy(image.data(), PyBytes_AS_STRING(bytes.ptr()), static_cast<std::size_t>(image.byteSize()));
}

namespace {

template <typename Value>
PyObject* property(PyObject* self, Value value)
{
    const FloatImage* image = imageOf(self);
    return image ? value(*image) : nullptr;
}

PyObject* width(PyObject* self, void*)
{
    return property(self, [](const FloatImage& image) { return PyLong_FromLong(image.width()); });
}

PyObject* height(PyObject* self, void*)
{
    return property(self, [](const FloatImage& image) { return PyLong_FromLong(image.height()); });
}

PyObject* size(PyObject* self, void*)
{
    return property(self, [](const FloatImage& image) { return PyLong_FromLongLong(image.size()); });
}

PyObject* bufferAddress(PyObject* self, void*)
{
    return property(self, [](const FloatImage& image) { return PyLong_FromVoidPtr(const_cast<float*>(image.data())); });
}

PyGetSetDef g_properties[] = {
    {"width", width, nullptr, "int: Number of pixels in x. Read-only.", nullptr},
    {"height", height, nullptr, "int: Number of pixels in y. Read-only.", nullptr},
    {"size", size, nullptr, "int: Number of all pixels. Read-only.", nullptr},
    {"bufferAddress", bufferAddress, nullptr,
     "int: Address of the first pixel, for native numeric code (ctypes). Valid until the image is resized or dies; "
     "numpy.asarray(image) is the safe way to the pixels. Read-only.",
     nullptr},
};

img::Statistics statistics(FloatImage& image)
{
    return withoutLock(image, [&] { return image.statistics(); });
}

double average(FloatImage& image)
{
    return statistics(image).mean;
}

double standardDeviation(FloatImage& image)
{
    return statistics(image).deviation;
}

double minValue(FloatImage& image)
{
    return statistics(image).minimum;
}

double maxValue(FloatImage& image)
{
    return statistics(image).maximum;
}

QString name(const FloatImage& image)
{
    return image.name();
}

void setName(FloatImage& image, const bp::object& name)
{
    image.setName(requireStr(name, "Image2d, 'name' argument must be of type 'str', not '%s'"));
}

void fillWithNumber(FloatImage& image, double number)
{
    withoutLock(image, [&] { image.fill(static_cast<float>(number)); });
}

void copyPixels(FloatImage& image, const NumberBuffer& source)
{
    const auto read = [&source](float* pixels) { static_cast<void>(source.read(pixels)); }; // every number fits
    if (!source.overlaps(image.data(), image.byteSize()) || source.isPlain<float>()) {
        withoutLock(image, [&] { read(image.data()); });
        return;
    }
    // The pixels come from a view of this image in another order or type.
    const std::unique_ptr<float[]> copy(new (std::nothrow) float[static_cast<std::size_t>(source.count())]);
    if (!copy)
        raise(PyExc_MemoryError, "Copy failed, unable to copy data into image");
    withoutLock(image, [&] {
        read(copy.get());
        std::copy_n(copy.get(), source.count(), image.data());
    });
}

int dimensionsOf(const bp::object& self)
{
    return HeldInstance<img::Image2d>::check(self.ptr()) ? 2 : 3;
}

/// The pixels one after the other, or in the shape that the image has as a buffer. Another shape with as many items
/// would scramble them.
bool hasShape(const NumberBuffer& source, const FloatImage& image, int dimensions)
{
    const int last = source.dimensions() - 1;
    if (last == 0 || source.count() != image.size())
        return source.count() == image.size();
    return last == dimensions - 1 && source.extent(last) == image.width() && source.extent(last - 1) == image.height();
}

/// The message tells the length of the object, or, where that is the number of pixels, another number that is not.
[[noreturn]] void raiseSizeMismatch(const NumberBuffer& source, std::int64_t pixels)
{
    const std::int64_t numbers[] = {source.extent(0), source.count(), source.extent(source.dimensions() - 1)};
    const std::int64_t told =
        *std::find_if(std::begin(numbers), std::end(numbers) - 1, [pixels](std::int64_t n) { return n != pixels; });
    // The counts of a cube may need more than 32 bits.
    const auto format = QByteArray("Image2d, image size mismatch: is %d instead of %d").replace("%d", "%lld");
    raise(PyExc_RuntimeError, format.constData(), static_cast<long long>(told), static_cast<long long>(pixels));
}

void fill(const bp::object& self, const bp::object& value)
{
    FloatImage* image = imageOf(self.ptr());
    if (!image)
        raisePending();
    if (double number = 0.0; isNumber(value.ptr())) {
        if (!toDouble(value.ptr(), number))
            raisePending();
        fillWithNumber(*image, number);
        return;
    }
    if (!PyObject_CheckBuffer(value.ptr()))
        raise(PyExc_TypeError, "Image2d.fill(), expected 'float' or an object with the buffer protocol but got '%s'",
              typeName(value));
    const NumberBuffer source(value.ptr());
    if (!source.isOpen())
        raiseFromPending(PyExc_RuntimeError, "Copy failed, unable to copy data into image");
    if (source.dimensions() == 0) // a number would have been one above
        raise(PyExc_TypeError, "Image2d.fill(), expected 'float' but got '%s'", typeName(value));
    if (!hasShape(source, *image, dimensionsOf(self)))
        raiseSizeMismatch(source, image->size());
    if (!source.isNumbers()) {
        PyErr_Format(PyExc_TypeError, "items of format '%s' are not real numbers", source.format());
        raiseFromPending(PyExc_RuntimeError, "Copy failed, unable to copy data into image");
    }
    copyPixels(*image, source);
}

} // namespace

void bindImageBase()
{
    bp::class_<FloatImage, boost::noncopyable> imageClass(
        "_HVImageBaseFloat",
        "What Image2d and Image3d have in common: pixels of 32-bit floats, stored row by row.\n\n"
        "A pixel of NO_VALUE (-9999.0) or not-a-number holds no value and is left out of the statistics.",
        bp::no_init);
    imageClass
        .def("average", average, bp::args("self"),
             "average() -> float\n\nMean of the pixels that hold a value; not-a-number when there is none. Reads every "
             "pixel at each call.")
        .def("standardDeviation", standardDeviation, bp::args("self"),
             "standardDeviation() -> float\n\n"
             "Population standard deviation (divided by the count) of the pixels that hold a value; not-a-number when "
             "there is none. Reads every pixel at each call.")
        .def("fill", fill, (bp::arg("self"), bp::arg("value")),
             "fill(value: float) -> None\n\nSets every pixel.\n\n"
             "Raises TypeError when value is neither a number nor a buffer.")
        .def("fill", fill, (bp::arg("self"), bp::arg("buffer")),
             "fill(buffer: Buffer) -> None\n\n"
             "Copies the pixels, x fastest, from an object with the buffer protocol: one row of as many items "
             "(FloatArray, "
             "array.array, a NumPy array of shape (size,)), or a NumPy array of shape (height, width), for an Image3d "
             "(length, height, width). Integers, bool and floats of any width, byte order and memory layout are "
             "converted; bytes are numbers from 0 to 255.\n\n"
             "Raises RuntimeError when the count or the shape differs or the items are no real numbers; the image then "
             "keeps its pixels.")
        .add_property("minValue", minValue,
                      "float: Smallest pixel that holds a value; NO_VALUE when there is none. Reads every pixel at "
                      "each use, so a loop keeps it in a variable. Read-only.")
        .add_property("maxValue", maxValue,
                      "float: Largest pixel that holds a value; NO_VALUE when there is none. Reads every pixel at each "
                      "use, so a loop keeps it in a variable. Read-only.")
        .add_property("name", name, setName,
                      "str: Name of the image. Every str can be set; reading a name with other characters than ASCII "
                      "raises UnicodeDecodeError.");
    for (PyGetSetDef& definition : g_properties)
        installProperty(reinterpret_cast<PyTypeObject*>(imageClass.ptr()), definition);
}

} // namespace python
