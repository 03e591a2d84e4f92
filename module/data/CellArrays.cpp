#include "module/data/CellArrays.h"

#include "host/changes/ChangeLog.h"
#include "module/core/NewFloatArray.h"
#include "runtime/ApplicationInterface.h"
#include "runtime/Errors.h"
#include "runtime/GilLock.h"

#include <algorithm>

namespace bp = boost::python;

namespace python {

namespace {

/// Of what is brought into the form of the file at once.
constexpr std::int64_t g_blockBytes = 16 << 20;

/// The values of some inlines as 32-bit floats in C order, with their memory.
class PlainFloats
{
public:
    explicit PlainFloats(const bp::object& values)
        : m_array(bp::import("numpy").attr("ascontiguousarray")(values, "f4"))
    {
        if (PyObject_GetBuffer(m_array.ptr(), &m_view, PyBUF_C_CONTIGUOUS) != 0)
            raisePending();
    }
    ~PlainFloats() { PyBuffer_Release(&m_view); }
    PlainFloats(const PlainFloats&) = delete;
    PlainFloats& operator=(const PlainFloats&) = delete;

    const float* data() const { return static_cast<const float*>(m_view.buf); }

private:
    bp::object m_array;
    Py_buffer m_view{};
};

hv::Result<void> writeUnlocked(HVBloc& bloc, const hv::CellRegion& region, const float* samples)
{
    const GilRelease unlocked;
    return bloc.writeRegion(region, samples);
}

/// The lines [begin, end) of those that are chosen; `values` holds their cells.
void writeLines(const VolumeHandle& volume, const CellChoice& choice, int begin, int end, const float* values)
{
    HVBloc& bloc = volume.get();
    const hv::CellRegion region = choice.region(begin, end);
    hv::Result<void> written;
    if (choice.isRegion() || (end - begin == 1 && choice.areWholeLines())) {
        written = writeUnlocked(bloc, region, values);
    } else {
        // Cells between the chosen ones are written as they are.
        CellChoice all;
        all.axes = {AxisChoice{region.firstInline, 1, region.endInline - region.firstInline},
                    AxisChoice{region.firstCrossline, 1, region.endCrossline - region.firstCrossline},
                    AxisChoice{region.firstSample, 1, region.endSample - region.firstSample}};
        std::vector<float> line(static_cast<std::size_t>(all.count()));
        if (auto read = bloc.file()->readRegion(region, line.data()); !read)
            raiseVolumeFailure(read.failure());
        const auto& [inlines, crosslines, samples] = choice.axes;
        const int lineSamples = all.axes[2].count;
        for (int j = 0; j < crosslines.count; ++j)
            for (int k = 0; k < samples.count; ++k)
                line[static_cast<std::size_t>((crosslines.at(j) - region.firstCrossline) * std::int64_t(lineSamples) +
                                              samples.at(k) - region.firstSample)] = *values++;
        written = writeUnlocked(bloc, region, line.data());
    }
    if (!written)
        raiseVolumeFailure(written.failure());
}

} // namespace

bp::object readArray(const hv::VolumeFile& file, const CellChoice& choice)
{
    const NewFloatArray array(choice.shape());
    const auto read = [&] {
        const GilRelease unlocked;
        return readCells(file, choice, array.data());
    }();
    if (!read)
        raiseVolumeFailure(read.failure());
    return choice.shape().empty() ? bp::object(*array.data()) : array.object();
}

void writeCells(const VolumeHandle& volume, const bp::object& index, const bp::object& value)
{
    const auto file = volume.file();
    const CellChoice choice = chosenCells(index, file->header());
    const bp::object numpy = bp::import("numpy");
    bp::object values = numpy.attr("asanyarray")(value);
    if (isVolumeView(values))
        values = values.attr("copy")();
    bp::list shape;
    for (const Py_ssize_t extent : choice.shape())
        shape.append(extent);
    values = numpy.attr("broadcast_to")(values, bp::tuple(shape));
    if (choice.count() == 0)
        return;
    const auto& [inlines, crosslines, samples] = choice.axes;
    values = values.attr("reshape")(inlines.count, crosslines.count, samples.count);

    const hv::ChangeScope step(projectChanges(), "SeismicVolume");
    const std::int64_t lineBytes = std::int64_t(crosslines.count) * samples.count * std::int64_t(sizeof(float));
    const int atOnce =
        choice.isRegion() ? static_cast<int>(std::clamp<std::int64_t>(g_blockBytes / lineBytes, 1, inlines.count)) : 1;
    for (int begin = 0; begin < inlines.count; begin += atOnce) {
        const int end = std::min(begin + atOnce, inlines.count);
        const PlainFloats floats(values[bp::slice(begin, end)]);
        writeLines(volume, choice, begin, end, floats.data());
    }
}

} // namespace python
