#include "module/Bindings.h"
#include "module/core/ImageClasses.h"
#include "module/core/NumberBuffer.h"
#include "runtime/ClassSlots.h"
#include "runtime/Errors.h"
#include "runtime/FastArguments.h"

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

void fillWithNumber(FloatImage& image, const bp::object& number)
{
    double value = 0.0;
    if (!toDouble("Image2d.fill()", number.ptr(), value))
        raisePending();
    withoutLock(image, [&] { image.fill(static_cast<float>(value)); });
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

/// A number or a buffer: a NumPy scalar is both and has no length, so the number of dimensions decides.
void fill(FloatImage& image, const bp::object& value)
{
    if (PyFloat_Check(value.ptr()) || PyLong_Check(value.ptr()) || !PyObject_CheckBuffer(value.ptr())) {
        const PyNumberMethods* number = Py_TYPE(value.ptr())->tp_as_number;
        if (!number || !(number->nb_float || number->nb_index))
            raise(PyExc_TypeError,
                  "Image2d.fill(), expected 'float' or an object with the buffer protocol but got '%s'",
                  typeName(value));
        fillWithNumber(image, value);
        return;
    }
    const NumberBuffer source(value.ptr());
    if (!source.isOpen())
        raiseFromPending(PyExc_RuntimeError, "Copy failed, unable to copy data into image");
    if (source.dimensions() == 0) {
        fillWithNumber(image, value);
        return;
    }
    // An array of several dimensions counts its rows when asked for its length.
    if (source.count() != image.size()) {
        const Py_ssize_t length = PyObject_Size(value.ptr());
        if (length < 0)
            raisePending();
        // The counts of a cube may need more than 32 bits.
        const auto format = QByteArray("Image2d, image size mismatch: is %d instead of %d").replace("%d", "%lld");
        raise(PyExc_RuntimeError, format.constData(),
              static_cast<long long>(length == image.size() ? source.count() : length),
              static_cast<long long>(image.size()));
    }
    if (!source.isNumbers()) {
        PyErr_Format(PyExc_TypeError, "items of format '%s' are not real numbers", source.format());
        raiseFromPending(PyExc_RuntimeError, "Copy failed, unable to copy data into image");
    }
    copyPixels(image, source);
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
        .def(
            "fill", fill, (bp::arg("self"), bp::arg("buffer")),
            "fill(buffer: Buffer) -> None\n\n"
            "Copies the pixels, x fastest, from an object with the buffer protocol that has as many items: FloatArray, "
            "array.array, a NumPy array of shape (size,), (height, width) or (length, height, width). Integers, bool "
            "and floats of any width, byte order and memory layout are converted; bytes are numbers from 0 to 255.\n\n"
            "Raises RuntimeError when the count differs or the items are no real numbers; the image then keeps its "
            "pixels.")
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
