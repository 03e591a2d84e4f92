#include "host/arrays/ArrayVolume.h"
#include "host/formats/PartFile.h"
#include "host/volume/VolumeIo.h"
#include "host/volume/VolumeWriter.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>

namespace hv::arrays {

namespace {

constexpr std::int64_t g_blockFloats = 2 << 20;
constexpr int g_magicBytes = 10; // version 1.0: mark, version, length of the text
constexpr int g_alignment = 64;
const QByteArray g_magic("\x93NUMPY", 6);

QByteArray headerText(const Extents& extents)
{
    QByteArray text = QStringLiteral("{'descr': '<f4', 'fortran_order': False, 'shape': (%1, %2, %3), }")
                          .arg(extents.inlines)
                          .arg(extents.crosslines)
                          .arg(extents.samples)
                          .toLatin1();
    const int whole = (g_magicBytes + text.size() + 1 + g_alignment - 1) / g_alignment * g_alignment;
    text = text.leftJustified(whole - g_magicBytes - 1, ' ') + '\n';
    QByteArray header = g_magic + QByteArray("\x01\x00", 2);
    header += static_cast<char>(text.size() & 0xff);
    header += static_cast<char>(text.size() >> 8);
    return header + text;
}

struct NumpyHead
{
    NumberType type;
    Extents extents;
    std::int64_t offset = 0;
};

/// The reason alone when the file is none that is read.
Result<NumpyHead> readHead(int file, std::int64_t fileBytes)
{
    constexpr std::int64_t most = 1 << 16;
    QByteArray bytes(static_cast<int>(std::min(most, fileBytes)), '\0');
    if (Result<void> read = readAt(file, bytes.data(), bytes.size(), 0); !read)
        return read.failure();
    if (!bytes.startsWith(g_magic) || bytes.size() < g_magicBytes + 2)
        return Failure(QStringLiteral("it is no file of NumPy"));
    const auto byte = [&bytes](int at) { return static_cast<std::int64_t>(static_cast<unsigned char>(bytes[at])); };
    const bool isLong = byte(6) >= 2;
    const std::int64_t begin = isLong ? 12 : g_magicBytes;
    const std::int64_t length = byte(8) + (byte(9) << 8) + (isLong ? (byte(10) << 16) + (byte(11) << 24) : 0);
    if (begin + length > bytes.size())
        return Failure(QStringLiteral("its header is cut off"));
    const QString text = QString::fromLatin1(bytes.mid(static_cast<int>(begin), static_cast<int>(length)));
    const auto member = [&text](const QString& pattern) { return QRegularExpression(pattern).match(text).captured(1); };
    const auto type = NumberType::fromText(member(QStringLiteral("'descr':\\s*'([^']*)'")));
    if (!type)
        return Failure(QStringLiteral("its elements are no numbers that are read"));
    if (member(QStringLiteral("'fortran_order':\\s*(\\w+)")) != QLatin1String("False"))
        return Failure(QStringLiteral("its elements are not in C order"));
    std::vector<std::int64_t> shape;
    for (const QString& extent :
         member(QStringLiteral("'shape':\\s*\\(([^)]*)\\)")).split(QLatin1Char(','), Qt::SkipEmptyParts))
        if (!extent.trimmed().isEmpty())
            shape.push_back(extent.trimmed().toLongLong());
    if (shape.size() == 2)
        shape.insert(shape.begin(), 1);
    NumpyHead head{*type, {}, begin + length};
    if (shape.size() == 3)
        head.extents = {shape[0], shape[1], shape[2]};
    if (!head.extents.isValid())
        return Failure(QStringLiteral("it has not two or three dimensions of a volume"));
    const std::int64_t elements = head.extents.inlines * head.extents.crosslines * head.extents.samples;
    if ((fileBytes - head.offset) / head.type.bytes() < elements)
        return Failure(QStringLiteral("it is shorter than its header says"));
    return head;
}

} // namespace

Result<void> writeNumpy(const VolumeFile& volume, const QString& path, JobContext& context)
{
    const VolumeHeader& header = volume.header();
    const std::int64_t samples = header.sampleCount();
    const QByteArray head = headerText({header.inlines(), header.crosslines(), samples});
    PartFile part;
    if (const auto opened = part.open(path); !opened)
        return cannotWrite(path, opened.failure());
    if (const auto reserved = part.reserve(head.size() + *sampleBytes(header.space)); !reserved)
        return cannotWrite(path, reserved.failure());
    if (Result<void> written = writeAt(part.descriptor(), head.constData(), head.size(), 0); !written)
        return cannotWrite(path, written.failure());
    const auto atOnce = static_cast<int>(std::clamp<std::int64_t>(g_blockFloats / samples, 1, header.crosslines()));
    std::vector<float> traces(static_cast<std::size_t>(atOnce * samples));
    std::int64_t offset = head.size();
    context.setSteps(header.inlines());
    for (int y = 0; y < header.inlines(); ++y) {
        for (int first = 0; first < header.crosslines(); first += atOnce) {
            if (context.cancelled())
                return JobContext::stopped();
            const int end = std::min(first + atOnce, header.crosslines());
            if (Result<void> read = volume.readTraces(y, first, end, traces.data()); !read)
                return read;
            const std::int64_t bytes = (end - first) * samples * std::int64_t(sizeof(float));
            if (Result<void> written = writeAt(part.descriptor(), traces.data(), bytes, offset); !written)
                return cannotWrite(path, written.failure());
            offset += bytes;
        }
        context.advance();
    }
    if (const auto done = part.putInPlace(); !done)
        return cannotWrite(path, done.failure());
    return {};
}

Result<void> readNumpy(const QString& path, const QString& volume, const VolumeOrders& orders, JobContext& context)
{
    const FileDescriptor file = FileDescriptor::open(path, O_RDONLY | O_NONBLOCK);
    struct stat state
    {};
    if (!file || fstat(file.number(), &state) != 0)
        return cannotRead(path, systemFailure(errno));
    const Result<NumpyHead> head = readHead(file.number(), state.st_size);
    if (!head)
        return cannotRead(path, head.failure());
    auto writer = VolumeWriter::create(
        volume,
        plainHeader(head->extents, QStringLiteral("Imported from the array \"%1\".").arg(QFileInfo(path).fileName())),
        orders);
    if (!writer)
        return writer.failure();
    const std::int64_t samples = head->extents.samples;
    const std::int64_t atOnce = std::clamp<std::int64_t>(g_blockFloats / samples, 1, head->extents.crosslines);
    std::vector<std::byte> bytes(static_cast<std::size_t>(atOnce * samples * head->type.bytes()));
    std::vector<float> traces(static_cast<std::size_t>(atOnce * samples));
    context.setSteps(2);
    {
        JobContext reading(context, 1);
        reading.setSteps(head->extents.inlines);
        std::int64_t offset = head->offset;
        for (std::int64_t y = 0; y < head->extents.inlines; ++y) {
            for (std::int64_t first = 0; first < head->extents.crosslines; first += atOnce) {
                if (context.cancelled())
                    return JobContext::stopped();
                const std::int64_t count = std::min(atOnce, head->extents.crosslines - first);
                const std::int64_t size = count * samples * head->type.bytes();
                if (Result<void> read = readAt(file.number(), bytes.data(), size, offset); !read)
                    return cannotRead(path, read.failure());
                offset += size;
                head->type.toFloats(bytes.data(), traces.data(), count * samples);
                if (Result<void> written = (*writer)->writeTraces(static_cast<int>(y), static_cast<int>(first),
                                                                  static_cast<int>(count), traces.data());
                    !written)
                    return written;
            }
            reading.advance();
        }
    }
    JobContext ending(context, 1);
    return (*writer)->finish(&ending);
}

} // namespace hv::arrays
