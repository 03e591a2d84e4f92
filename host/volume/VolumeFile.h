#pragma once

#include "host/volume/VolumeHeaderText.h"
#include "host/volume/VolumeIo.h"

#include <memory>

namespace hv {

class FileMapping;

/// A volume file, open for reading: what the header said when it was opened, and the samples as they are in the file
/// now. Costs a few kilobytes whatever the size; any number of threads may read at once.
///
/// What an object of the kind Volume holds. Views of the samples (order()) stay valid as long as the object is kept,
/// also after the file was deleted or renamed.
///
/// Failures are sentences that name the file. `out` is then undefined. None of it throws.
class VolumeFile
{
public:
    static Result<std::shared_ptr<const VolumeFile>> open(const QString& path);
    ~VolumeFile();
    VolumeFile(const VolumeFile&) = delete;
    VolumeFile& operator=(const VolumeFile&) = delete;

    /// Where it was opened; renaming does not change that.
    const QString& path() const { return m_path; }
    std::int64_t fileSize() const { return m_fileSize; }
    const VolumeHeader& header() const { return m_head.header; }
    const VolumeLayout& layout() const { return m_head.layout; }
    FrameShape shape(georef::ScanOrientation orientation) const { return frameShape(header().space, orientation); }

    /// `region` within the extents, which its ends may exceed; empty when nothing is left of it.
    std::optional<CellRegion> clipped(const CellRegion& region) const;

    /// A frame as Image3d::frame() has it. As fast as copying memory where the file has the order.
    Result<void> readFrame(georef::ScanOrientation orientation, int index, float* out) const;
    /// Trace after trace: those of crosslines [firstCrossline, endCrossline) of one inline.
    Result<void> readTraces(int inlineIndex, int firstCrossline, int endCrossline, float* out) const;
    /// Element (inline, crossline, sample) of the region, the last index running fastest. Within the extents.
    Result<void> readRegion(const CellRegion& region, float* out) const;
    /// One sample; within the extents.
    Result<float> sample(int inlineIndex, int crossline, int sampleIndex) const;

    /// The samples of one orientation in memory, frame after frame; null when the file has not got the order. Read them
    /// as const and at any time: see FileMapping for what becomes of a file that is truncated.
    const float* order(georef::ScanOrientation orientation) const;
    const std::shared_ptr<const FileMapping>& mapping() const { return m_mapping; }
    /// Of the open file, for whoever copies it.
    int descriptor() const { return m_file.number(); }
    /// False once a part of the file was lost while it was open.
    Result<void> check() const;

private:
    VolumeFile() = default;
    Result<void> copy(std::int64_t offset, std::int64_t bytes, float* out) const;
    /// The frame from the inline order.
    void gatherCrossline(int index, float* out) const;
    void gatherTimeslice(int index, float* out) const;

    QString m_path;
    std::int64_t m_fileSize = 0;
    VolumeFileHead m_head;
    FileDescriptor m_file;
    std::shared_ptr<const FileMapping> m_mapping;
};

/// The two of a file without opening it as a volume: what anybody needs who changes it. For writers.
Result<VolumeFileHead> readVolumeHead(int descriptor, std::int64_t& fileSize);

} // namespace hv
