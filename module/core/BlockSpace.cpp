#include "host/georef/BlocSpace.h"
#include "module/Bindings.h"
#include "module/core/Reconstruction.h"
#include "module/core/SharedMemory.h"
#include "runtime/Errors.h"
#include "runtime/HeldInstance.h"

#include <new>

namespace bp = boost::python;

namespace python {

namespace {

using core::mat4;
using core::vec3;
using georef::BlocSpace;
using SpacePointer = std::shared_ptr<BlocSpace>;

SpacePointer makeBlockSpace(int width, int height, int length)
{
    if (width < 1 || height < 1 || length < 1)
        raise(PyExc_ValueError, "BlockSpace(), dimensions can not be less than 1 (%d, %d, %d)", width, height, length);
    SpacePointer space(new (std::nothrow) BlocSpace(width, height, length));
    if (!space)
        raiseNotEnoughMemory("BlockSpace(), not enough memory for new BlockSpace.");
    return space;
}

void setExtents(BlocSpace& space, int width, int height, int length)
{
    if (width < 1 || height < 1 || length < 1)
        raise(PyExc_ValueError, "BlockSpace.setBlockSpace(), dimensions can not be less than 1 (%d, %d, %d)", width,
              height, length);
    space.setExtents(width, height, length);
}

void copyFrom(BlocSpace& space, const BlocSpace& other)
{
    space = other;
}

void refuse(const char* member, const BlocSpace::Refusal& refusal)
{
    if (!refusal.empty())
        raise(PyExc_ValueError, "BlockSpace.%s, %s", member, refusal.c_str());
}

/// All three setters of reference points share this text.
void requireExtents(const BlocSpace& space)
{
    if (!space.isValid())
        raise(PyExc_ValueError,
              "BlockSpace.setSurveySpace(), BlockSpace dimensions can not be less than 1 (%d, %d, %d)", space.width(),
              space.height(), space.length());
}

void setSurveySpace(BlocSpace& space, const vec3& origin, const vec3& endX, const vec3& endY, const vec3& endZ)
{
    requireExtents(space);
    refuse("setSurveySpace()", space.setSurveySpace(origin, endX, endY, endZ));
}

void setSurveyRanges(BlocSpace& space, double firstCrossline, double lastCrossline, double firstInline,
                     double lastInline, double firstSample, double lastSample)
{
    requireExtents(space);
    refuse("setSurveySpace()",
           space.setSurveySpace(firstCrossline, lastCrossline, firstInline, lastInline, firstSample, lastSample));
}

void setWorldSpace(BlocSpace& space, const vec3& origin, const vec3& endX, const vec3& endY, const vec3& endZ)
{
    requireExtents(space);
    refuse("setWorldSpace()", space.setWorldSpace(origin, endX, endY, endZ));
}

/// The getters are called with None by scripts that pass the property around as a function.
template <float (BlocSpace::*Getter)() const>
float resolution(const BlocSpace* space)
{
    if (!space)
        raise(PyExc_RuntimeError, "BlockSpace cannot be None");
    return (space->*Getter)();
}

template <const mat4& (BlocSpace::*Getter)() const>
mat4 matrix(const BlocSpace& space)
{
    return (space.*Getter)();
}

void setFromBlockToSurvey(BlocSpace& space, const mat4& matrix)
{
    refuse("fromBlockToSurvey", space.setFromBlockToSurvey(matrix));
}

void setFromSurveyToBlock(BlocSpace& space, const mat4& matrix)
{
    refuse("fromSurveyToBlock", space.setFromSurveyToBlock(matrix));
}

void setFromBlockToWorld(BlocSpace& space, const mat4& matrix)
{
    refuse("fromBlockToWorld", space.setFromBlockToWorld(matrix));
}

void setFromWorldToBlock(BlocSpace& space, const mat4& matrix)
{
    refuse("fromWorldToBlock", space.setFromWorldToBlock(matrix));
}

bp::tuple numbers(const mat4& matrix)
{
    bp::list all;
    for (std::size_t row = 0; row < 4; ++row)
        for (std::size_t column = 0; column < 4; ++column)
            all.append(matrix[row][column]);
    return bp::tuple(all);
}

mat4 matrixOf(const bp::object& numbers)
{
    mat4 matrix;
    for (std::size_t i = 0; i < 16; ++i)
        matrix[i / 4][i % 4] = bp::extract<double>(numbers[i]);
    return matrix;
}

bp::object reduce(const bp::object& self)
{
    const BlocSpace& space = bp::extract<const BlocSpace&>(self);
    return reduction(self, bp::make_tuple(space.width(), space.height(), space.length(),
                                          numbers(space.fromBlockToSurvey()), numbers(space.fromBlockToWorld()),
                                          static_cast<int>(space.scanOrientation()), space.frameIndex()));
}

void setState(const bp::object& self, const bp::object& state)
{
    const bp::tuple values = restoredValues(self, state, 7);
    const bp::object spaceClass{
        bp::handle<>(bp::borrowed(reinterpret_cast<PyObject*>(HeldInstance<BlocSpace>::type())))};
    spaceClass.attr("__init__")(self, bp::object(values[0]), bp::object(values[1]), bp::object(values[2]));
    BlocSpace& space = bp::extract<BlocSpace&>(self);
    setFromBlockToSurvey(space, matrixOf(values[3]));
    setFromBlockToWorld(space, matrixOf(values[4]));
    space.setScanOrientation(static_cast<georef::ScanOrientation>(bp::extract<int>(values[5])()));
    space.setFrameIndex(bp::extract<int>(values[6]));
}

template <typename SpaceClass>
void bindTransforms(SpaceClass& spaceClass)
{
    spaceClass
        .def("setSurveySpace", setSurveySpace, bp::args("self", "origin", "endX", "endY", "endZ"),
             "setSurveySpace(origin: vec3, endX: vec3, endY: vec3, endZ: vec3) -> None\n\n"
             "Defines fromBlockToSurvey by the survey coordinates (inline, crossline, sample) of four cells: the first "
             "one, (0, 0, 0), and the last one along each axis of the block, (width - 1, 0, 0), (0, height - 1, 0) and "
             "(0, 0, length - 1). Along an axis of a single cell the point is one cell away.\n\n"
             "Raises ValueError when an extent is below 1 or the points lie on one plane.")
        .def("setSurveySpace", setSurveyRanges,
             bp::args("self", "firstCrossline", "lastCrossline", "firstInline", "lastInline", "firstSample",
                      "lastSample"),
             "setSurveySpace(firstCrossline: float, lastCrossline: float, firstInline: float, lastInline: float, "
             "firstSample: float, lastSample: float) -> None\n\n"
             "The same from the numbers of the first and the last cell along x, y and z.\n\n"
             "Raises ValueError when an extent is below 1 or an axis of several cells has two equal numbers.")
        .def("setWorldSpace", setWorldSpace, bp::args("self", "origin", "endX", "endY", "endZ"),
             "setWorldSpace(origin: vec3, endX: vec3, endY: vec3, endZ: vec3) -> None\n\n"
             "Defines fromBlockToWorld by the world coordinates (map x, map y, depth or time) of the four cells of "
             "setSurveySpace().\n\nRaises ValueError when an extent is below 1 or the points lie on one plane.")
        .add_property("fromBlockToSurvey", matrix<&BlocSpace::fromBlockToSurvey>, setFromBlockToSurvey,
                      "mat4: A copy of the transform. Setting it sets fromSurveyToBlock to the inverse; raises "
                      "ValueError for a matrix that has none.")
        .add_property("fromSurveyToBlock", matrix<&BlocSpace::fromSurveyToBlock>, setFromSurveyToBlock,
                      "mat4: The inverse of fromBlockToSurvey, set in the same way.")
        .add_property("fromBlockToWorld", matrix<&BlocSpace::fromBlockToWorld>, setFromBlockToWorld,
                      "mat4: A copy of the transform. Setting it sets fromWorldToBlock to the inverse; raises "
                      "ValueError for a matrix that has none.")
        .add_property("fromWorldToBlock", matrix<&BlocSpace::fromWorldToBlock>, setFromWorldToBlock,
                      "mat4: The inverse of fromBlockToWorld, set in the same way.")
        .add_property("crosslineResolution", resolution<&BlocSpace::crosslineResolution>,
                      "float: Step of the crossline numbers from cell to cell (block x). Read-only.")
        .add_property("inlineResolution", resolution<&BlocSpace::inlineResolution>,
                      "float: Step of the inline numbers from cell to cell (block y). Read-only.")
        .add_property("verticalResolution", resolution<&BlocSpace::verticalResolution>,
                      "float: Step of the vertical samples from cell to cell (block z), in the survey's unit. "
                      "Read-only.");
}

} // namespace

void bindBlockSpace()
{
    bp::class_<BlocSpace, SpacePointer> spaceClass(
        "BlockSpace",
        "The place of a grid of width x height x length cells in the survey and in the world.\n\n"
        "Block coordinates count cells: x crosslines, y inlines, z vertical samples; whole numbers are cell centres. "
        "Survey coordinates are (inline, crossline, sample): block x is the second one. World coordinates are map x, "
        "map y and depth or time. Block spaces can be copied and pickled.",
        bp::no_init);
    spaceClass
        .def("__init__",
             bp::make_constructor(makeBlockSpace, bp::default_call_policies(),
                                  (bp::arg("width"), bp::arg("height"), bp::arg("length"))),
             "__init__(width: int, height: int, length: int) -> None\n\n"
             "A block whose lines and samples are numbered from 0 in steps of 1 and whose world coordinates are the "
             "block's.\n\nRaises ValueError when an extent is below 1.")
        .def("setBlockSpace", setExtents, bp::args("self", "width", "height", "length"),
             "setBlockSpace(width: int, height: int, length: int) -> None\n\n"
             "Sets the extents; the transforms stay.\n\nRaises ValueError when an extent is below 1.")
        .def("setBlockSpace", copyFrom, bp::args("self", "other"),
             "setBlockSpace(other: BlockSpace) -> None\n\nCopies everything from other.")
        .add_property("width", &BlocSpace::width, "int: Number of cells along x, the crosslines. Read-only.")
        .add_property("height", &BlocSpace::height, "int: Number of cells along y, the inlines. Read-only.")
        .add_property("length", &BlocSpace::length, "int: Number of cells along z, the samples. Read-only.")
        .add_property("scanOrientation", &BlocSpace::scanOrientation, &BlocSpace::setScanOrientation,
                      "ScanOrientation: The axis that frames are cut across.")
        .add_property("frameIndex", &BlocSpace::frameIndex, &BlocSpace::setFrameIndex,
                      "int: The current frame along that axis; not tested against the extents.")
        .def("__reduce__", reduce, bp::args("self"), "__reduce__() -> tuple\n\nFor pickle and copy.")
        .def("__setstate__", setState, bp::args("self", "state"),
             "__setstate__(state: tuple) -> None\n\nFor pickle and copy.");
    bindTransforms(spaceClass);
    HeldInstance<BlocSpace>::adopt(reinterpret_cast<PyTypeObject*>(spaceClass.ptr()));
}

} // namespace python
