#pragma once

#include "module/core/ImageClasses.h"
#include "runtime/ClassSlots.h"
#include "runtime/Errors.h"
#include "runtime/FastArguments.h"
#include "runtime/NumberArguments.h"
#include "runtime/Ref.h"

#include <array>
#include <string>
#include <string_view>

namespace python {

/// The messages of one image class about its indices, and how many it takes.
template <typename Image>
struct IndexTexts;

template <>
struct IndexTexts<img::Image2d>
{
    static constexpr std::size_t Dimensions = 2;
    static constexpr std::array OutOfRange{"Image2d, x index %d out of range (0 -> %d)",
                                           "Image2d, y index %d out of range (0 -> %d)"};
    static constexpr const char* NotATuple =
        "Image2d, expected tuple of ('int', 'int') as index for image but got ('%s', '%s')";
    static constexpr const char* GetValue = "Image2d.getValue()";
    static constexpr const char* SetValue = "Image2d.setValue()";
    static constexpr const char* SetItem = "Image2d";
    static constexpr const char* GetItemDocumentation =
        "__getitem__(index: tuple[int, int]) -> float\n\nOne pixel. Raises IndexError outside the image.";
    static constexpr const char* SetItemDocumentation = "__setitem__(index: tuple[int, int], value: float) -> "
                                                        "None\n\nSets one pixel. Raises IndexError outside the image.";
};

template <>
struct IndexTexts<img::Image3d>
{
    static constexpr std::size_t Dimensions = 3;
    static constexpr std::array OutOfRange{"Image3d, x index %d out of range (0 -> %d)",
                                           "Image3d, y index %d out of range (0 -> %d)",
                                           "Image3d, z index %d out of range (0 -> %d)"};
    static constexpr const char* NotATuple =
        "Image3d, expected tuple of ('int', 'int', 'int') as index for image but got ('%s', '%s', '%s')";
    static constexpr const char* GetValue = "Image3d.getValue()";
    static constexpr const char* SetValue = "Image3d.setValue()";
    static constexpr const char* SetItem = "Image3d";
    static constexpr const char* GetItemDocumentation =
        "__getitem__(index: tuple[int, int, int]) -> float\n\nOne pixel. Raises IndexError outside the image.";
    static constexpr const char* SetItemDocumentation = "__setitem__(index: tuple[int, int, int], value: float) -> "
                                                        "None\n\nSets one pixel. Raises IndexError outside the image.";
};

/// Single pixels at the speed of a hand-written C type: image[x, y], image[x, y] = v, getValue() and setValue().
template <typename Image>
class PixelAccess
{
    using Texts = IndexTexts<Image>;
    static constexpr std::size_t Dimensions = Texts::Dimensions;

public:
    static void install(PyTypeObject* type, const char* getDocumentation, const char* setDocumentation)
    {
        static PyMethodDef getDefinition = {"getValue",
                                            reinterpret_cast<PyCFunction>(reinterpret_cast<void*>(getValue)),
                                            METH_FASTCALL | METH_KEYWORDS, getDocumentation};
        static PyMethodDef setDefinition = {"setValue",
                                            reinterpret_cast<PyCFunction>(reinterpret_cast<void*>(setValue)),
                                            METH_FASTCALL | METH_KEYWORDS, setDocumentation};
        installMethod(type, getDefinition);
        installMethod(type, setDefinition);
        installAttributeDictionary(type);
        installSlot(type, "__getitem__", reinterpret_cast<void*>(getItem), Texts::GetItemDocumentation);
        installSlot(type, "__setitem__", reinterpret_cast<void*>(setItem), Texts::SetItemDocumentation);
    }

private:
    static PyObject* getItem(PyObject* self, PyObject* key)
    {
        const float* pixel = isIndex(key) ? pixelAt(self, items(key)) : nullptr;
        return pixel ? PyFloat_FromDouble(*pixel) : nullptr;
    }

    static int setItem(PyObject* self, PyObject* key, PyObject* value)
    {
        if (!value) {
            PyErr_Format(PyExc_TypeError, "%s, pixels can not be deleted", Texts::SetItem);
            return -1;
        }
        return isIndex(key) && store(self, items(key), value, Texts::SetItem) ? 0 : -1;
    }

    static PyObject* getValue(PyObject* self, PyObject* const* arguments, Py_ssize_t count, PyObject* keywords)
    {
        std::array<PyObject*, Dimensions + 1> bound;
        if (keywords || count != Dimensions) {
            if (!bindArguments(Texts::GetValue, Names.data(), Dimensions, arguments, count, keywords, bound.data()))
                return nullptr;
            arguments = bound.data();
        }
        const float* pixel = areInts(arguments, Texts::GetValue) ? pixelAt(self, arguments) : nullptr;
        return pixel ? PyFloat_FromDouble(*pixel) : nullptr;
    }

    static PyObject* setValue(PyObject* self, PyObject* const* arguments, Py_ssize_t count, PyObject* keywords)
    {
        std::array<PyObject*, Dimensions + 1> bound;
        if (keywords || count != Dimensions + 1) {
            static constexpr auto SetNames = [] {
                std::array<const char*, Dimensions + 1> names{};
                std::copy_n(Names.begin(), Dimensions, names.begin());
                names[Dimensions] = "value";
                return names;
            }();
            if (!bindArguments(Texts::SetValue, SetNames.data(), Dimensions + 1, arguments, count, keywords,
                               bound.data()))
                return nullptr;
            arguments = bound.data();
        }
        if (!areInts(arguments, Texts::SetValue) || !store(self, arguments, arguments[Dimensions], Texts::SetValue))
            return nullptr;
        Py_RETURN_NONE;
    }

    static PyObject* const* items(PyObject* tuple) { return reinterpret_cast<PyTupleObject*>(tuple)->ob_item; }

    static bool isIndex(PyObject* key)
    {
        if (PyTuple_Check(key) && PyTuple_GET_SIZE(key) == Dimensions) [[likely]] {
            bool all = true;
            for (std::size_t axis = 0; axis < Dimensions; ++axis)
                all = all && isInt(items(key)[axis]);
            if (all) [[likely]]
                return true;
        }
        refuseIndex(key);
        return false;
    }

    /// The message ends with the types of the tuple's items, or with that of an object that is no tuple.
    static void refuseIndex(PyObject* key)
    {
        constexpr std::string_view Text = Texts::NotATuple;
        const std::string message(Text.substr(0, Text.rfind("('%s'")));
        if (!PyTuple_Check(key)) {
            PyErr_Format(PyExc_TypeError, "%s'%s'", message.c_str(), typeName(key));
            return;
        }
        std::string types;
        for (Py_ssize_t i = 0; i < PyTuple_GET_SIZE(key); ++i)
            types += (i ? ", '" : "'") + std::string(typeName(PyTuple_GET_ITEM(key, i))) + "'";
        PyErr_Format(PyExc_TypeError, "%s(%s)", message.c_str(), types.c_str());
    }

    static bool areInts(PyObject* const* coordinates, const char* function)
    {
        for (std::size_t axis = 0; axis < Dimensions; ++axis)
            if (!isInt(coordinates[axis])) [[unlikely]] {
                PyErr_Format(PyExc_TypeError, "%s, expected 'int' but got '%s'", function, typeName(coordinates[axis]));
                return false;
            }
        return true;
    }

    /// The value is converted first: a conversion written in Python may resize the image.
    static bool store(PyObject* self, PyObject* const* coordinates, PyObject* value, const char* function)
    {
        double number = 0.0;
        if (PyFloat_CheckExact(value)) [[likely]]
            number = PyFloat_AS_DOUBLE(value);
        else if (!toDouble(function, value, number))
            return false;
        float* pixel = pixelAt(self, coordinates);
        if (pixel)
            *pixel = static_cast<float>(number);
        return pixel != nullptr;
    }

    /// The coordinates are ints. Null with IndexError for the first one that is not inside the image.
    static float* pixelAt(PyObject* self, PyObject* const* coordinates)
    {
        Image* image = HeldInstance<Image>::get(self);
        if (!image) [[unlikely]] {
            imageOf(self);
            return nullptr;
        }
        const std::array<int, 3> extents{image->width(), image->height(), image->length()};
        std::int64_t offset = 0;
        std::int64_t step = 1;
        for (std::size_t axis = 0; axis < Dimensions; ++axis) {
            int overflow = 0;
            const long coordinate = PyLong_AsLongAndOverflow(coordinates[axis], &overflow);
            if (overflow || !isValidIndex(coordinate, extents[axis])) [[unlikely]] {
                refuseCoordinate(axis, coordinates[axis], extents[axis]);
                return nullptr;
            }
            offset += coordinate * step;
            step *= extents[axis];
        }
        return image->data() + offset;
    }

    /// The index is printed as a Python int, for it may have more bits than any of ours.
    static void refuseCoordinate(std::size_t axis, PyObject* coordinate, int extent)
    {
        const std::string_view text = Texts::OutOfRange[axis];
        const std::size_t place = text.find("%d");
        const std::string format = std::string(text.substr(0, place)) + "%S" + std::string(text.substr(place + 2));
        if (const Ref number = Ref::steal(PyLong_Type.tp_as_number->nb_int(coordinate)))
            PyErr_Format(PyExc_IndexError, format.c_str(), number.get(), extent - 1);
    }

    static constexpr std::array<const char*, 3> Names{"x", "y", "z"};
};

} // namespace python
