#include "module/data/CellChoice.h"

#include "runtime/Errors.h"

#include <boost/python.hpp>

#include <algorithm>

namespace bp = boost::python;

namespace python {

using georef::ScanOrientation;

namespace {

constexpr const char* g_axisNames[] = {"inline", "crossline", "sample"};

AxisChoice sliceOf(PyObject* slice, int extent)
{
    Py_ssize_t start = 0, stop = 0, step = 0;
    if (PySlice_Unpack(slice, &start, &stop, &step) < 0)
        raisePending();
    const Py_ssize_t count = PySlice_AdjustIndices(extent, &start, &stop, step);
    // With one cell or none the step says nothing, and may be larger than any index.
    return {static_cast<int>(start), count > 1 ? static_cast<int>(step) : 1, static_cast<int>(count), false};
}

AxisChoice axisOf(PyObject* item, int extent, const char* name)
{
    if (PySlice_Check(item))
        return sliceOf(item, extent);
    if (PyBool_Check(item) || !PyIndex_Check(item))
        raise(PyExc_TypeError, "SeismicVolume, expected 'int' or 'slice' as %s index but got '%s'", name,
              typeName(item));
    const bp::object number(bp::handle<>(bp::borrowed(item)));
    const long long position = requirePosition(number, "SeismicVolume, expected 'int' but got '%s'");
    const long long index = position < 0 ? position + extent : position;
    if (!isValidIndex(index, extent))
        raise(PyExc_IndexError, "SeismicVolume, %s index %d is out of range for %d", name, saturated(position), extent);
    return {static_cast<int>(index), 1, 1, true};
}

/// `out` gets every cell of the choice in the lines [begin, end) of those that are chosen, from an array that holds the
/// region of these lines with these distances between neighbours.
void pick(const CellChoice& choice, int begin, int end, const float* region, std::array<std::ptrdiff_t, 3> strides,
          float* out)
{
    const hv::CellRegion bounds = choice.region(begin, end);
    const auto& [inlines, crosslines, samples] = choice.axes;
    for (int i = begin; i < end; ++i)
        for (int j = 0; j < crosslines.count; ++j) {
            const float* trace = region + (inlines.at(i) - bounds.firstInline) * strides[0] +
                                 (crosslines.at(j) - bounds.firstCrossline) * strides[1];
            for (int k = 0; k < samples.count; ++k)
                *out++ = trace[(samples.at(k) - bounds.firstSample) * strides[2]];
        }
}

/// A choice within one crossline or time slice comes from that frame where the file has frames of it, and when it is
/// a good part of one.
std::optional<ScanOrientation> frameOf(const hv::VolumeFile& file, const CellChoice& choice)
{
    for (const auto& [axis, orientation] :
         {std::pair(1, ScanOrientation::Crossline), std::pair(2, ScanOrientation::Timeslice)})
        if (choice.axes[static_cast<std::size_t>(axis)].count == 1 && choice.axes[0].count > 1 &&
            file.order(orientation) && choice.count() >= file.shape(orientation).cells() / 16)
            return orientation;
    return std::nullopt;
}

hv::Result<void> readFromFrame(const hv::VolumeFile& file, const CellChoice& choice, ScanOrientation orientation,
                               float* out)
{
    const bool isCrossline = orientation == ScanOrientation::Crossline;
    const int index = choice.axes[isCrossline ? 1 : 2].first;
    std::vector<float> frame(static_cast<std::size_t>(file.shape(orientation).cells()));
    if (auto read = file.readFrame(orientation, index, frame.data()); !read)
        return read;
    const std::ptrdiff_t width = file.shape(orientation).width;
    const std::array<std::ptrdiff_t, 3> strides =
        isCrossline ? std::array<std::ptrdiff_t, 3>{1, 0, width} : std::array<std::ptrdiff_t, 3>{width, 1, 0};
    const hv::CellRegion bounds = choice.region(0, choice.axes[0].count);
    const float* corner = frame.data() + bounds.firstInline * strides[0] + bounds.firstCrossline * strides[1] +
                          bounds.firstSample * strides[2];
    pick(choice, 0, choice.axes[0].count, corner, strides, out);
    return {};
}

} // namespace

std::vector<Py_ssize_t> CellChoice::shape() const
{
    std::vector<Py_ssize_t> extents;
    for (const AxisChoice& axis : axes)
        if (!axis.isInt)
            extents.push_back(axis.count);
    return extents;
}

hv::CellRegion CellChoice::region(int begin, int end) const
{
    const int first = axes[0].at(begin);
    const int last = axes[0].at(end - 1);
    return {std::min(first, last), std::max(first, last) + 1, axes[1].lowest(),
            axes[1].end(),         axes[2].lowest(),          axes[2].end()};
}

CellChoice chosenCells(const bp::object& index, const hv::VolumeHeader& header)
{
    const bp::tuple items = PyTuple_Check(index.ptr()) ? bp::tuple(index) : bp::make_tuple(index);
    const Py_ssize_t count = PyTuple_GET_SIZE(items.ptr());
    const int extents[] = {header.inlines(), header.crosslines(), header.sampleCount()};
    Py_ssize_t axesOfDots = 3 - count;
    for (Py_ssize_t i = 0; i < count; ++i)
        axesOfDots += PyTuple_GET_ITEM(items.ptr(), i) == Py_Ellipsis;
    CellChoice choice;
    std::size_t axis = 0;
    const auto takeAll = [&](Py_ssize_t number) {
        for (; number > 0 && axis < 3; --number, ++axis)
            choice.axes[axis] = {0, 1, extents[axis], false};
    };
    bool isAfterDots = false;
    for (Py_ssize_t i = 0; i < count; ++i) {
        PyObject* item = PyTuple_GET_ITEM(items.ptr(), i);
        if (item == Py_Ellipsis && !isAfterDots) {
            takeAll(axesOfDots);
            isAfterDots = true;
        } else if (item == Py_Ellipsis || axis == 3) {
            raise(PyExc_IndexError, "SeismicVolume, too many indices: the volume has 3 axes");
        } else {
            choice.axes[axis] = axisOf(item, extents[axis], g_axisNames[axis]);
            ++axis;
        }
    }
    takeAll(3);
    return choice;
}

hv::Result<void> readCells(const hv::VolumeFile& file, const CellChoice& choice, float* out)
{
    if (choice.count() == 0)
        return {};
    if (const auto orientation = frameOf(file, choice))
        return readFromFrame(file, choice, *orientation, out);
    const int lines = choice.axes[0].count;
    if (choice.isRegion())
        return file.readRegion(choice.region(0, lines), out);
    // Line by line: what lies between the chosen lines is never read.
    std::vector<float> line;
    const std::int64_t lineCells = choice.count() / lines;
    for (int i = 0; i < lines; ++i, out += lineCells) {
        const hv::CellRegion bounds = choice.region(i, i + 1);
        if (choice.areWholeLines()) {
            if (auto read = file.readRegion(bounds, out); !read)
                return read;
            continue;
        }
        const std::ptrdiff_t samples = bounds.endSample - bounds.firstSample;
        const std::ptrdiff_t crosslines = bounds.endCrossline - bounds.firstCrossline;
        line.resize(static_cast<std::size_t>(samples * crosslines));
        if (auto read = file.readRegion(bounds, line.data()); !read)
            return read;
        pick(choice, i, i + 1, line.data(), {samples * crosslines, samples, 1}, out);
    }
    return {};
}

hv::Result<void> readCube(const hv::VolumeFile& file, const CellChoice& choice, float* out)
{
    if (auto sound = file.check(); !sound)
        return sound;
    const auto& [inlines, crosslines, samples] = choice.axes;
    const std::ptrdiff_t width = file.header().crosslines();
    const std::ptrdiff_t frame = file.shape(ScanOrientation::Inline).cells();
    const float* all = file.order(ScanOrientation::Inline);
    for (int k = 0; k < samples.count; ++k)
        for (int i = 0; i < inlines.count; ++i) {
            const float* row = all + inlines.at(i) * frame + samples.at(k) * width;
            for (int j = 0; j < crosslines.count; ++j)
                *out++ = row[crosslines.at(j)];
        }
    return file.check();
}

} // namespace python
