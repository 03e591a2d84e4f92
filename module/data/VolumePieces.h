#pragma once

#include "module/data/VolumeHandle.h"

#include <vector>

namespace python {

/// Some inlines of a volume in the hands of a script, with a halo on either side.
struct VolumePiece
{
    VolumeHandle volume;
    int first; ///< inlines of the volume [first, end)
    int end;
    int halo; ///< lines of the array before the first
    boost::python::object array;
};

/// Walks a volume, piece by piece. What a piece needs of the one before is kept, so that scripts may write into the
/// volume that they walk.
class VolumePieces
{
public:
    VolumePieces(const VolumeHandle& volume, int halo, int lines);

    /// Raises StopIteration at the end.
    std::shared_ptr<VolumePiece> next();

private:
    VolumeHandle m_volume;
    const int m_halo;
    const int m_lines;
    int m_next = 0;
    std::vector<float> m_kept; // the last lines of the array before, up to m_keptEnd
    int m_keptEnd = 0;
};

std::shared_ptr<VolumePieces> makePieces(const VolumeHandle& volume, int halo, int lines);

} // namespace python
