#include "host/core/Array.h"
#include "host/georef/BlocSpace.h"
#include "host/georef/PointConversion.h"
#include "module/Bindings.h"
#include "module/Submodule.h"
#include "module/core/ArrayArgument.h"
#include "runtime/Errors.h"
#include "runtime/FastArguments.h"
#include "runtime/GilLock.h"
#include "runtime/HeldInstance.h"
#include "runtime/NumberArguments.h"
#include "runtime/ValueInstance.h"

#include <algorithm>
#include <array>
#include <new>

namespace bp = boost::python;

namespace python {

namespace {

using core::vec3;
using core::Vec3Array;
using georef::BlocSpace;
using georef::Frame;

struct FrameConversion
{
    const char* name;
    /// The name as messages show it.
    const char* call;
    Frame from, to;
};

/// Converts all points of an array at once. `source` stays where it is although the lock is given away.
PyObject* convertArray(const FrameConversion& conversion, Vec3Array& source, const BlocSpace& space)
{
    std::unique_ptr<Vec3Array> result(new (std::nothrow) Vec3Array);
    vec3* points = nullptr;
    if (!result || (!source.isEmpty() && !(points = result->appendUninitialized(source.count()))))
        return PyErr_Format(PyExc_MemoryError, "%s, not enough memory for %lld points", conversion.call,
                            static_cast<long long>(source.count()));
    if (points) {
        const BlocSpace unchanging = space;
        const core::Pin pin(source.exports());
        const GilRelease unlocked;
        georef::convertPoints(unchanging, conversion.from, conversion.to, source.data(), points,
                              static_cast<std::size_t>(source.count()));
    }
    return bp::manage_new_object::apply<Vec3Array*>::type()(result.release());
}

PyObject* convertOne(const FrameConversion& conversion, PyObject* const* point, Py_ssize_t count,
                     const BlocSpace& space)
{
    if (count == 1 && ValueInstance<vec3>::check(*point)) {
        if (const vec3* value = ValueInstance<vec3>::get(*point))
            return ValueInstance<vec3>::make(georef::convertPoint(space, conversion.from, conversion.to, *value));
        return PyErr_Format(PyExc_TypeError, "%s, the vec3 was not initialized", conversion.call);
    }
    if (count == 1) {
        auto* array = static_cast<Vec3Array*>(
            bp::converter::get_lvalue_from_python(*point, bp::converter::registered<Vec3Array>::converters));
        if (array)
            return convertArray(conversion, *array, space);
        if (!PySequence_Check(*point))
            return PyErr_Format(PyExc_TypeError, "%s, expected 'vec3' or 'Vec3Array' but got '%s'", conversion.call,
                                typeName(*point));
        Vec3Array points;
        return readSequence(points, *point) ? convertArray(conversion, points, space) : nullptr;
    }
    vec3 value;
    for (std::size_t axis = 0; axis < 3; ++axis)
        if (!toDouble(conversion.call, point[axis], value[axis]))
            return nullptr;
    return ValueInstance<vec3>::make(georef::convertPoint(space, conversion.from, conversion.to, value));
}

/// Two arguments, a point or points and the block space, or four with the coordinates one by one.
PyObject* convert(const FrameConversion& conversion, PyObject* const* arguments, Py_ssize_t positional,
                  PyObject* keywords)
{
    static constexpr std::array<const char*, 4> Coordinates{"x", "y", "z", "blockSpace"};
    static constexpr std::array<const char*, 2> Point{"point", "blockSpace"};
    static constexpr std::array<const char*, 2> Points{"points", "blockSpace"};
    std::array<PyObject*, 4> bound;
    Py_ssize_t count = positional;
    if (keywords) {
        count += PyTuple_GET_SIZE(keywords);
        const bool plural =
            std::any_of(reinterpret_cast<PyTupleObject*>(keywords)->ob_item,
                        reinterpret_cast<PyTupleObject*>(keywords)->ob_item + PyTuple_GET_SIZE(keywords),
                        [](PyObject* keyword) { return PyUnicode_CompareWithASCIIString(keyword, "points") == 0; });
        const char* const* names = count == 4 ? Coordinates.data() : plural ? Points.data() : Point.data();
        if (!bindArguments(conversion.call, names, count == 4 ? 4 : 2, arguments, positional, keywords, bound.data()))
            return nullptr;
        arguments = bound.data();
    }
    if (count != 2 && count != 4)
        return PyErr_Format(PyExc_TypeError,
                            "%s, expected a 'vec3', a 'Vec3Array' or three 'float', and a "
                            "'BlockSpace' but got %zd arguments",
                            conversion.call, count);
    PyObject* spaceObject = arguments[count - 1];
    const BlocSpace* space =
        HeldInstance<BlocSpace>::check(spaceObject) ? HeldInstance<BlocSpace>::get(spaceObject) : nullptr;
    if (!space)
        return PyErr_Format(PyExc_TypeError, "%s, expected 'BlockSpace' but got '%s'", conversion.call,
                            typeName(spaceObject));
    return convertOne(conversion, arguments, count - 1, *space);
}

constexpr std::array Conversions{
    FrameConversion{"blockToSurvey", "blockToSurvey()", Frame::Block, Frame::Survey},
    FrameConversion{"blockToWorld", "blockToWorld()", Frame::Block, Frame::World},
    FrameConversion{"surveyToWorld", "surveyToWorld()", Frame::Survey, Frame::World},
    FrameConversion{"worldToBlock", "worldToBlock()", Frame::World, Frame::Block},
    FrameConversion{"worldToSurvey", "worldToSurvey()", Frame::World, Frame::Survey},
    FrameConversion{"surveyToBlock", "surveyToBlock()", Frame::Survey, Frame::Block},
};

template <std::size_t Index>
PyObject* call(PyObject* /*module*/, PyObject* const* arguments, Py_ssize_t positional, PyObject* keywords)
{
    return convert(Conversions[Index], arguments, positional, keywords);
}

std::string documentation(const FrameConversion& conversion)
{
    const auto frame = [](Frame f) { return f == Frame::Block ? "block" : f == Frame::Survey ? "survey" : "world"; };
    const std::string name = conversion.name;
    return name + "(point: vec3, blockSpace: BlockSpace) -> vec3\n" + name +
           "(x: float, y: float, z: float, blockSpace: BlockSpace) -> vec3\n" + name +
           "(points: Vec3Array, blockSpace: BlockSpace) -> Vec3Array\n\nConverts " + frame(conversion.from) +
           " coordinates to " + frame(conversion.to) +
           " coordinates; an array of points is converted at once into a new array. A sequence of vec3 or a numpy "
           "array "
           "of shape (n, 3) is taken for an array.\n\n"
           "Block coordinates are (x, y, z) in cells, survey coordinates (inline, crossline, sample), world "
           "coordinates map x, map y and depth or time.\n\nRaises TypeError for other arguments.";
}

template <std::size_t... Index>
void addFunctions(bp::object module, std::index_sequence<Index...>)
{
    static const std::array<std::string, sizeof...(Index)> texts{documentation(Conversions[Index])...};
    static std::array<PyMethodDef, sizeof...(Index)> definitions{
        PyMethodDef{Conversions[Index].name, reinterpret_cast<PyCFunction>(reinterpret_cast<void*>(call<Index>)),
                    METH_FASTCALL | METH_KEYWORDS, texts[Index].c_str()}...};
    const bp::object moduleName = module.attr("__name__");
    for (PyMethodDef& definition : definitions)
        module.attr(definition.ml_name) = owned(PyCFunction_NewEx(&definition, nullptr, moduleName.ptr()));
}

} // namespace

void bindUtils()
{
    bp::object utils = addSubmodule("utils");
    utils.attr("__doc__") = "Conversion of points between block, survey and world coordinates.";
    addFunctions(utils, std::make_index_sequence<Conversions.size()>());
}

} // namespace python
