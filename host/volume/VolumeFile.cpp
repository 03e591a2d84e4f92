#include "host/volume/VolumeFile.h"

#include "host/img/Rearrange.h"
#include "host/volume/FileMapping.h"

#include <QDir>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <vector>

namespace hv {

using georef::ScanOrientation;

namespace {

/// Inlines whose samples are turned at once.
constexpr int g_block = 64;

} // namespace

Result<VolumeFileHead> readVolumeHead(int descriptor, std::int64_t& fileSize)
{
    struct stat status
    {};
    if (fstat(descriptor, &status) != 0)
        return systemFailure(errno);
    if (!S_ISREG(status.st_mode))
        return Failure(QStringLiteral("it is not an ordinary file"));
    fileSize = status.st_size;
    QByteArray bytes(static_cast<int>(std::min(fileSize, volumeHeaderBytes * volumeHeaderCopies)), '\0');
    if (auto read = readAt(descriptor, bytes.data(), bytes.size(), 0); !read)
        return read.failure();
    return parseVolumeHeader(bytes, fileSize);
}

Result<std::shared_ptr<const VolumeFile>> VolumeFile::open(const QString& path)
{
    std::shared_ptr<VolumeFile> file(new VolumeFile);
    file->m_path = QDir::cleanPath(QDir::current().absoluteFilePath(path));
    file->m_file = FileDescriptor::open(path, O_RDONLY | O_NONBLOCK);
    if (!file->m_file)
        return cannotRead(path, systemFailure(errno));
    auto head = readVolumeHead(file->m_file.number(), file->m_fileSize);
    if (!head)
        return cannotRead(path, head.failure());
    file->m_head = std::move(*head);
    // Through a descriptor of its own, for what is advised below would count for the mapping too.
    const FileDescriptor mapped = FileDescriptor::open(path, O_RDONLY | O_NONBLOCK);
    if (!mapped)
        return cannotRead(path, systemFailure(errno));
    auto mapping = FileMapping::map(mapped.number(), static_cast<std::size_t>(file->m_fileSize));
    if (!mapping)
        return cannotRead(path, mapping.failure());
    file->m_mapping = *mapping;
    // A frame is read in one piece: reading ahead would only fetch what nobody asked for.
    posix_fadvise(file->m_file.number(), 0, 0, POSIX_FADV_RANDOM);
    return std::shared_ptr<const VolumeFile>(std::move(file));
}

VolumeFile::~VolumeFile() = default;

const float* VolumeFile::order(ScanOrientation orientation) const
{
    const auto& order = m_head.layout.order(orientation);
    return order && order->isWhole ? reinterpret_cast<const float*>(m_mapping->data() + order->offset) : nullptr;
}

std::optional<CellRegion> VolumeFile::clipped(const CellRegion& region) const
{
    const VolumeHeader& header = m_head.header;
    const CellRegion inside{std::max(region.firstInline, 0),    std::min(region.endInline, header.inlines()),
                            std::max(region.firstCrossline, 0), std::min(region.endCrossline, header.crosslines()),
                            std::max(region.firstSample, 0),    std::min(region.endSample, header.sampleCount())};
    const bool isEmpty = inside.firstInline >= inside.endInline || inside.firstCrossline >= inside.endCrossline ||
                         inside.firstSample >= inside.endSample;
    return isEmpty ? std::nullopt : std::optional(inside);
}

Result<void> VolumeFile::check() const
{
    struct stat status
    {};
    if (m_mapping->isDamaged() || fstat(m_file.number(), &status) != 0 || status.st_size < m_fileSize)
        return cannotRead(m_path, Failure(QStringLiteral("a part of it was lost after it was opened")));
    return {};
}

Result<void> VolumeFile::copy(std::int64_t offset, std::int64_t bytes, float* out) const
{
    // Memory that is there is copied fastest; what the disk has to bring comes fastest in one piece.
    const auto from = static_cast<std::size_t>(offset);
    const auto count = static_cast<std::size_t>(bytes);
    if (m_mapping->isInMemory(from, count)) {
        std::memcpy(out, m_mapping->data() + from, count);
        return {};
    }
    if (auto read = readAt(m_file.number(), out, bytes, offset); !read)
        return cannotRead(m_path, read.failure());
    return {};
}

Result<void> VolumeFile::readFrame(ScanOrientation orientation, int index, float* out) const
{
    const FrameShape frames = shape(orientation);
    if (index < 0 || index >= frames.count)
        return Failure(QStringLiteral("Unable to read '%1': it has no frame %2.").arg(m_path).arg(index), m_path);
    if (auto sound = check(); !sound)
        return sound;
    Result<void> read;
    if (const auto& order = m_head.layout.order(orientation); order && order->isWhole)
        read = copy(order->offset + index * frames.bytes(), frames.bytes(), out);
    else if (orientation == ScanOrientation::Crossline)
        gatherCrossline(index, out);
    else
        gatherTimeslice(index, out);
    return read ? check() : read;
}

void VolumeFile::gatherCrossline(int index, float* out) const
{
    const auto inlines = static_cast<std::size_t>(m_head.header.inlines());
    const auto crosslines = static_cast<std::size_t>(m_head.header.crosslines());
    const auto samples = static_cast<std::size_t>(m_head.header.sampleCount());
    const float* first = order(ScanOrientation::Inline) + index;
    std::vector<float> traces(g_block * samples);
    for (std::size_t begin = 0; begin < inlines; begin += g_block) {
        const std::size_t count = std::min<std::size_t>(g_block, inlines - begin);
        // From one inline to the next the distance of two samples stays the same.
        img::gather(first + begin * samples * crosslines, crosslines, traces.data(), count * samples);
        img::transpose(traces.data(), samples, out + begin, inlines, samples, count);
    }
}

void VolumeFile::gatherTimeslice(int index, float* out) const
{
    const auto crosslines = static_cast<std::size_t>(m_head.header.crosslines());
    const auto samples = static_cast<std::size_t>(m_head.header.sampleCount());
    const float* row = order(ScanOrientation::Inline) + static_cast<std::size_t>(index) * crosslines;
    for (int i = 0; i < m_head.header.inlines(); ++i) {
        std::memcpy(out, row, crosslines * sizeof(float));
        row += samples * crosslines;
        out += crosslines;
    }
}

Result<void> VolumeFile::readTraces(int inlineIndex, int firstCrossline, int endCrossline, float* out) const
{
    return readRegion({inlineIndex, inlineIndex + 1, firstCrossline, endCrossline, 0, m_head.header.sampleCount()},
                      out);
}

Result<void> VolumeFile::readRegion(const CellRegion& region, float* out) const
{
    const auto inside = clipped(region);
    if (!inside || *inside != region)
        return Failure(QStringLiteral("Unable to read '%1': the region is not within it.").arg(m_path), m_path);
    if (auto sound = check(); !sound)
        return sound;
    const auto crosslines = static_cast<std::size_t>(m_head.header.crosslines());
    const auto samples = static_cast<std::size_t>(m_head.header.sampleCount());
    const auto width = static_cast<std::size_t>(region.endCrossline - region.firstCrossline);
    const auto height = static_cast<std::size_t>(region.endSample - region.firstSample);
    const float* inlineOrder = order(ScanOrientation::Inline);
    for (auto i = static_cast<std::size_t>(region.firstInline); i < static_cast<std::size_t>(region.endInline); ++i) {
        const float* corner = inlineOrder + (i * samples + static_cast<std::size_t>(region.firstSample)) * crosslines +
                              region.firstCrossline;
        img::transpose(corner, crosslines, out, height, width, height);
        out += width * height;
    }
    return check();
}

Result<float> VolumeFile::sample(int inlineIndex, int crossline, int sampleIndex) const
{
    float value = 0.0f;
    auto read =
        readRegion({inlineIndex, inlineIndex + 1, crossline, crossline + 1, sampleIndex, sampleIndex + 1}, &value);
    if (!read)
        return read.failure();
    return value;
}

} // namespace hv
