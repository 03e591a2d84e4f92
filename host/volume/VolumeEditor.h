#pragma once

#include "host/volume/VolumeFile.h"

#include <mutex>

namespace hv {

class JobContext;

/// Changes samples of a volume file where they lie. The inline order has each change at once; the others are marked in
/// the file before the first change, brought up to date by flush(), and not read by anybody in between.
///
/// Written with pwrite into room that the file has. There is one editor per file while somebody keeps it, and no other
/// program writes meanwhile. Any thread, one call at a time goes on.
///
/// Failures are sentences that name the file, with the system's error number.
class VolumeEditor
{
public:
    /// Orders that another program left behind are made anew first, which takes as long as reading and writing them.
    static Result<std::shared_ptr<VolumeEditor>> open(const QString& path, JobContext* context = nullptr);
    /// Flushes; whoever wants to hear of a failure does that before.
    ~VolumeEditor();
    VolumeEditor(const VolumeEditor&) = delete;
    VolumeEditor& operator=(const VolumeEditor&) = delete;

    VolumeHeader header() const;

    /// As VolumeFile::readFrame() and readRegion() have them.
    Result<void> writeFrame(georef::ScanOrientation orientation, int index, const float* frame);
    Result<void> writeRegion(const CellRegion& region, const float* samples);

    /// Brings the further orders up to date, the samples to the disk, and the marks back. Statistics are made anew when
    /// that takes less than about 0.1 s, else the file has none from then on. Without changes it does nothing. When
    /// it fails or is stopped the marks stay, and the next one does the work.
    Result<void> flush(JobContext* context = nullptr);

    /// Texts, units and history; refused for other extents or matrices.
    Result<void> setHeader(const VolumeHeader& header);
    /// Reads all samples.
    Result<void> makeStatistics(JobContext* context = nullptr);
    /// Makes the orders that the file has not got, in room of their own, and forgets those that it is not to have.
    Result<void> setOrders(const VolumeOrders& orders, JobContext* context = nullptr);

private:
    explicit VolumeEditor(QString path) : m_path(std::move(path)) {}
    Result<void> writeRows(const CellRegion& region, int inlineIndex, const float* rows);
    Result<void> beginChange(const CellRegion& region);
    Result<void> bringUpToDate(const std::vector<CellRegion>& regions, JobContext* context);
    Result<void> copyTo(georef::ScanOrientation orientation, const std::vector<CellRegion>& regions,
                        JobContext* context);
    Result<void> mark(bool isWhole);
    Result<void> putHeader(const VolumeFileHead& head);
    bool hasFurtherOrders() const { return m_head.layout.orders().count() > 1; }
    CellRegion everything() const;
    Failure failed(const Failure& reason) const;

    const QString m_path;
    mutable std::recursive_mutex m_mutex;
    FileDescriptor m_file; // locked
    VolumeFileHead m_head;
    std::vector<CellRegion> m_changed; // since the last flush; their union holds every change
};

} // namespace hv
