#pragma once

#include "host/volume/VolumeFile.h"

#include <boost/python/object.hpp>

#include <array>
#include <vector>

namespace python {

/// The cells of one axis that a slice or an int names.
struct AxisChoice
{
    int first = 0;
    int step = 1; ///< negative for a slice that runs backwards
    int count = 0;
    bool isInt = false; ///< the axis is none of the result

    int at(int position) const { return first + position * step; }
    /// The range of indices that holds all of them, which are some.
    int lowest() const { return step > 0 ? first : at(count - 1); }
    int end() const { return (step > 0 ? at(count - 1) : first) + 1; }
};

/// The cells of a volume that volume[...] names, by NumPy's rules for ints, slices and "...".
struct CellChoice
{
    std::array<AxisChoice, 3> axes; ///< inlines, crosslines, samples

    std::int64_t count() const { return std::int64_t(axes[0].count) * axes[1].count * axes[2].count; }
    /// Of the array: axes that an int names are left out.
    std::vector<Py_ssize_t> shape() const;
    /// The smallest region with all cells of some inlines, [begin, end) of those that are chosen. There are some.
    hv::CellRegion region(int begin, int end) const;
    /// Every cell of region(), in its order.
    bool isRegion() const { return axes[0].step == 1 && areWholeLines(); }
    bool areWholeLines() const { return axes[1].step == 1 && axes[2].step == 1; }
};

/// `index` is what stands in the brackets. Raises IndexError for an int outside, or too many axes, TypeError for
/// anything that is no int or slice.
CellChoice chosenCells(const boost::python::object& index, const hv::VolumeHeader& header);

/// Element (inline, crossline, sample) of the choice, the last index running fastest. Needs no interpreter lock.
hv::Result<void> readCells(const hv::VolumeFile& file, const CellChoice& choice, float* out);
/// The same with crosslines running fastest, then inlines, as in Image3d.
hv::Result<void> readCube(const hv::VolumeFile& file, const CellChoice& choice, float* out);

} // namespace python
