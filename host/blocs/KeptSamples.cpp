#include "host/blocs/KeptSamples.h"

#include "host/objects/ObjectStore.h"
#include "host/volume/VolumeEditor.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace hv {

namespace {

std::int64_t cells(const CellRegion& region)
{
    return std::int64_t(region.endInline - region.firstInline) * (region.endCrossline - region.firstCrossline) *
           (region.endSample - region.firstSample);
}

/// Regions of many lines are moved line by line.
template <class Do>
Result<void> lineByLine(const CellRegion& region, std::int64_t offset, Do each)
{
    CellRegion line = region;
    for (int i = region.firstInline; i < region.endInline; ++i) {
        line.firstInline = i;
        line.endInline = i + 1;
        if (auto done = each(line, offset); !done)
            return done;
        offset += cells(line) * static_cast<std::int64_t>(sizeof(float));
    }
    return {};
}

} // namespace

Result<std::unique_ptr<KeptSamples>> KeptSamples::make(const QString& folder)
{
    std::unique_ptr<KeptSamples> kept(new KeptSamples);
    if (!QDir().mkpath(folder))
        return Failure(QStringLiteral("Unable to create the folder '%1'.").arg(QDir::toNativeSeparators(folder)));
    kept->m_file = FileDescriptor(::open(QFile::encodeName(folder).constData(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600));
    if (!kept->m_file) {
        // A file system that knows no files without names.
        QByteArray name = QFile::encodeName(folder + QStringLiteral("/samples-XXXXXX"));
        kept->m_file = FileDescriptor(mkostemp(name.data(), O_CLOEXEC));
        if (!kept->m_file)
            return cannotWrite(folder, systemFailure(errno));
        unlink(name.constData());
    }
    return kept;
}

Result<void> KeptSamples::keep(const VolumeFile& volume, const CellRegion& region)
{
    std::vector<float> samples;
    const std::int64_t offset = m_bytes;
    auto kept = lineByLine(region, offset, [&](const CellRegion& line, std::int64_t at) -> Result<void> {
        samples.resize(static_cast<std::size_t>(cells(line)));
        if (auto read = volume.readRegion(line, samples.data()); !read)
            return read;
        auto written =
            writeAt(m_file.number(), samples.data(), cells(line) * static_cast<std::int64_t>(sizeof(float)), at);
        return written ? Result<void>() : cannotWrite(volume.path(), written.failure());
    });
    if (!kept)
        return kept;
    m_pieces.push_back({region, offset});
    m_bytes += cells(region) * static_cast<std::int64_t>(sizeof(float));
    return {};
}

Result<void> KeptSamples::exchange(const VolumeFile& volume, VolumeEditor& editor)
{
    std::vector<float> before;
    std::vector<float> now;
    for (auto piece = m_pieces.rbegin(); piece != m_pieces.rend(); ++piece) {
        auto done =
            lineByLine(piece->region, piece->offset, [&](const CellRegion& line, std::int64_t at) -> Result<void> {
                const auto count = static_cast<std::size_t>(cells(line));
                const auto bytes = static_cast<std::int64_t>(count * sizeof(float));
                before.resize(count);
                now.resize(count);
                if (auto read = readAt(m_file.number(), before.data(), bytes, at); !read)
                    return cannotWrite(volume.path(), read.failure());
                if (auto read = volume.readRegion(line, now.data()); !read)
                    return read;
                if (auto written = editor.writeRegion(line, before.data()); !written)
                    return written;
                auto kept = writeAt(m_file.number(), now.data(), bytes, at);
                return kept ? Result<void>() : cannotWrite(volume.path(), kept.failure());
            });
        if (!done)
            return done;
    }
    // Regions that overlap: what was written first comes back last, and the other way next time.
    std::reverse(m_pieces.begin(), m_pieces.end());
    return {};
}

CellRegion KeptSamples::united() const
{
    CellRegion all = m_pieces.empty() ? CellRegion() : m_pieces.front().region;
    for (const Piece& piece : m_pieces)
        all = all.united(piece.region);
    return all;
}

Result<void> SamplesChange::exchange()
{
    const QString path = m_store.path(m_key);
    auto volume = VolumeFile::open(path);
    if (!volume)
        return volume.failure();
    auto editor = VolumeEditor::open(path);
    if (!editor)
        return editor.failure();
    if (auto exchanged = m_kept->exchange(**volume, **editor); !exchanged)
        return exchanged;
    if (auto flushed = (*editor)->flush(); !flushed)
        return flushed;
    editor->reset();
    m_store.changedInPlace(m_key, m_kept->united());
    return {};
}

} // namespace hv
