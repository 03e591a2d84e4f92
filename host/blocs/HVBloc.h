#pragma once

#include "host/blocs/FrameOverlay.h"
#include "host/data/HVProject.h"
#include "host/volume/VolumeFile.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

/// host/blocs: gridded data and lines as scripts and viewers handle them: frames that are read, changed in memory,
/// written into files, and how that reaches the project.

namespace hv {
class JobContext;
class KeptSamples;
class VolumeEditor;
} // namespace hv

/// A block of samples on a grid: the volume that a file holds, or one that has no file yet, with frames that were
/// changed in memory only. A handle of its own; many may stand for one file.
///
/// Frames are numbered from 0 along the scan orientation. Reading and writing frames goes on in the calling thread, and
/// what others have to know of a change is told later, once per turn of the event loop: writing a thousand frames is
/// one change of the object in its project, and one step of its undo when it happens in one scope.
///
/// GUI thread only; file() may be read by any thread. Failures are sentences; those of the file system carry its error
/// number.
class HVBloc : public QObject
{
    Q_OBJECT

public:
    ~HVBloc() override;

    /// The block in a file, of the class that its content calls for. `project`, if any, hears of changes when the file
    /// is one of its objects.
    static hv::Result<std::unique_ptr<HVBloc>> load(const QString& path, HVProject* project);
    /// One without a file, of one cell.
    static std::unique_ptr<HVBloc> create(hv::VolumeContent content, HVProject* project);

    /// Where the samples are written to: absolute, or empty. Setting it moves nothing on the disk, and what was read
    /// from another file stays.
    const QString& filename() const { return m_filename; }
    void setFilename(const QString& path);
    /// The complete base name of the file. Setting it keeps folder and suffix; without a file name, those of the
    /// project's volumes are taken.
    QString name() const;
    void setName(const QString& name);
    /// What is read of the file; null for a block without one. May be kept, and read, by anybody.
    const std::shared_ptr<const hv::VolumeFile>& file() const { return m_file; }

    /// Everything but the samples.
    const hv::VolumeHeader& header() const { return m_file ? m_file->header() : m_header; }
    /// Of a block without a file: what its file is to say, and its extents. Frames in memory go when those change.
    /// Refused for extents below 1. Of one with a file: texts, units and history, which are written at once; refused
    /// for another geometry.
    hv::Result<void> setHeader(const hv::VolumeHeader& header);
    /// Of header(), with the current frame.
    georef::BlocSpace blocSpace() const;
    hv::Result<void> setBlocSpace(const georef::BlocSpace& space);
    /// Bytes of the samples, once.
    std::int64_t datasize() const;

    georef::ScanOrientation scanOrientation() const { return m_orientation; }
    void setScanOrientation(georef::ScanOrientation orientation) { m_orientation = orientation; }
    int minFrameIndex() const { return 0; }
    int maxFrameIndex() const { return shape().count - 1; }
    hv::FrameShape shape() const { return hv::frameShape(header().space, m_orientation); }
    /// The current frame; kept within the frames of the orientation.
    int frameIndex() const;
    void setFrameIndex(int index) { m_index = index; }

    /// Whether further orders of the samples are wanted, which read crosslines and time slices as fast as inlines: it
    /// decides what createFile() makes. Unless set, what the file has; without a file, what the user's setting says.
    bool isTransposed() const;
    void setTransposed(bool isTransposed) { m_isTransposed = isTransposed; }
    /// How many further orders the file has.
    int transposedCount() const { return m_file ? m_file->layout().orders().count() - 1 : 0; }

    /// Traces [firstCrossline, endCrossline) of an inline, one after the other, as they are in memory or else in the
    /// file. Any thread, while nothing is changed.
    hv::Result<void> readTraces(int inlineIndex, int firstCrossline, int endCrossline, float* out) const;
    /// A copy of a frame, as it is in memory or else in the file; without either all its pixels have no value.
    hv::Result<std::unique_ptr<img::Image2d>> frame(int index) const;
    hv::Result<std::unique_ptr<img::Image2d>> currentFrame() const { return frame(frameIndex()); }
    /// Replaces a frame in memory; the file stays as it is until the frame is written.
    hv::Result<void> setFrame(int index, const img::Image2d& image);
    /// Writes a frame into the file at filename(), which has to be there and of these extents.
    hv::Result<void> writeFrame(int index, const img::Image2d& image);
    /// The same of any cells; element (inline, crossline, sample).
    hv::Result<void> writeRegion(const hv::CellRegion& region, const float* samples);
    /// What was written is seen by this object at once, and by the others in the next turn of the event loop.
    void save();
    /// That turn, now: further orders are brought up to date, and the project is told.
    hv::Result<void> settle();

    /// Reads all samples of the file and keeps their statistics in it. `context` may be null.
    hv::Result<void> makeStatistics(hv::JobContext* context);

    /// Makes the file at filename(), which must not be there, with the samples as they are in memory or else in the
    /// file that was read; it is what is read from then on. In a project's folder it becomes an object of it. `context`
    /// may be null.
    hv::Result<void> createFile(hv::JobContext* context);

protected:
    HVBloc(hv::VolumeContent content, HVProject* project);

private:
    hv::Result<std::unique_ptr<img::Image2d>> frame(georef::ScanOrientation orientation, int index) const;
    hv::Result<void> check(int index, const img::Image2d& image) const;
    template <class Write>
    hv::Result<void> change(const hv::CellRegion& region, Write write);
    hv::Result<void> beginWriting();
    void keep(const hv::CellRegion& region);
    hv::Result<void> reopen();
    std::optional<hv::ObjectKey> key() const;
    hv::Failure failed(const QString& why) const;

    QPointer<HVProject> m_project;
    QString m_filename;
    std::shared_ptr<const hv::VolumeFile> m_file;
    hv::VolumeHeader m_header; // of a block without a file
    hv::FrameOverlay m_overlay;
    georef::ScanOrientation m_orientation = georef::ScanOrientation::Inline;
    int m_index = 0;
    std::optional<bool> m_isTransposed;
    // Since the first write after which nobody was told yet:
    std::shared_ptr<hv::VolumeEditor> m_editor;
    std::optional<hv::CellRegion> m_written;
    std::shared_ptr<hv::KeptSamples> m_kept; // for undo; null when nobody keeps steps, or it is too much
    bool m_isKept = false;                   // whether that was decided for the present step
    quint64 m_step = 0;                      // of the log
    QTimer m_settleSoon;
};
