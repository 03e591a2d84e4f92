#include "host/arrays/ZarrFolder.h"
#include "host/volume/VolumeIo.h"
#include "host/volume/VolumeWriter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>
#include <QtEndian>

#include <algorithm>
#include <array>

namespace hv::arrays {

namespace {

constexpr std::int64_t g_mostChunkBytes = 1 << 30;
/// Of lines that are put together at once.
constexpr std::int64_t g_tileBytes = 64 << 20;

Result<QJsonObject> readJson(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Failure(QStringLiteral("%1: %2").arg(QFileInfo(path).fileName(), file.errorString()));
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.read(g_mostChunkBytes), &error);
    if (!document.isObject())
        return Failure(QStringLiteral("%1 is no JSON object: %2").arg(QFileInfo(path).fileName(), error.errorString()));
    return document.object();
}

/// An array of three dimensions.
struct ZarrArray
{
    QString folder;
    NumberType type;
    Extents extents;
    std::array<std::int64_t, 3> chunk{};
    QChar separator = QLatin1Char('.');
    bool isCompressed = false;
    float fill = 0;
    QJsonObject attributes; // of the group

    std::int64_t chunkElements() const { return chunk[0] * chunk[1] * chunk[2]; }
};

/// The folder with the array: the one named, `samples` in it, or the only one in it with three dimensions.
Result<QString> findArray(const QString& path)
{
    if (QFileInfo::exists(path + "/.zarray"))
        return path;
    QStringList found;
    for (const QString& name : QDir(path).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString folder = path + QLatin1Char('/') + name;
        const Result<QJsonObject> description = readJson(folder + "/.zarray");
        if (description && (*description)["shape"].toArray().size() == 3)
            found << folder;
    }
    if (found.contains(path + "/samples"))
        return path + "/samples";
    if (found.size() != 1)
        return Failure(QStringLiteral("it has %1 arrays of three dimensions").arg(found.size()));
    return found.first();
}

Result<ZarrArray> describeArray(const QString& path)
{
    const Result<QString> folder = findArray(path);
    if (!folder)
        return folder.failure();
    const Result<QJsonObject> read = readJson(*folder + "/.zarray");
    if (!read)
        return read.failure();
    const QJsonObject& description = *read;
    ZarrArray array;
    array.folder = *folder;
    const QJsonArray shape = description["shape"].toArray();
    const QJsonArray chunks = description["chunks"].toArray();
    if (description["zarr_format"].toInt() != 2 || shape.size() != 3 || chunks.size() != 3)
        return Failure(QStringLiteral("it is no array of version 2 with three dimensions"));
    const auto whole = [](const QJsonValue& value) {
        return static_cast<std::int64_t>(std::clamp(value.toDouble(), 0.0, 1e15));
    };
    array.extents = {whole(shape[0]), whole(shape[1]), whole(shape[2])};
    for (int i = 0; i < 3; ++i)
        array.chunk[static_cast<std::size_t>(i)] = whole(chunks[i]);
    const auto type = NumberType::fromText(description["dtype"].toString());
    if (!type)
        return Failure(
            QStringLiteral("its elements, \"%1\", are no numbers that are read").arg(description["dtype"].toString()));
    array.type = *type;
    if (!array.extents.isValid())
        return Failure(QStringLiteral("its shape is none of a volume"));
    const double bytes =
        double(array.chunk[0]) * double(array.chunk[1]) * double(array.chunk[2]) * double(type->bytes());
    if (bytes < 1 || bytes > double(g_mostChunkBytes))
        return Failure(QStringLiteral("its chunks are empty or larger than 1 GB"));
    if (description["order"].toString() != QLatin1String("C") || !description["filters"].isNull())
        return Failure(QStringLiteral("its elements are filtered, or not in C order"));
    const QString compressor = description["compressor"].toObject()["id"].toString();
    if (!description["compressor"].isNull() && compressor != QLatin1String("zlib"))
        return Failure(QStringLiteral("it is compressed with \"%1\"; plain chunks and zlib are read").arg(compressor));
    array.isCompressed = !compressor.isEmpty();
    array.fill = static_cast<float>(description["fill_value"].toDouble());
    if (description["dimension_separator"].toString() == QLatin1String("/"))
        array.separator = QLatin1Char('/');
    if (const Result<QJsonObject> attributes = readJson(path + "/.zattrs"))
        array.attributes = *attributes;
    return array;
}

std::optional<core::mat4> matrix(const QJsonValue& value)
{
    const QJsonArray values = value.toArray();
    if (values.size() != 16)
        return {};
    core::mat4 result = core::mat4::identity();
    for (int i = 0; i < 16; ++i)
        result[static_cast<std::size_t>(i / 4)][static_cast<std::size_t>(i % 4)] = values[i].toDouble();
    return result;
}

VolumeHeader headerOf(const ZarrArray& array, const QString& path)
{
    VolumeHeader header =
        plainHeader(array.extents, QStringLiteral("Imported from the array \"%1\".").arg(QFileInfo(path).fileName()));
    header.crs = array.attributes["crs_wkt"].toString();
    header.samples = array.attributes["samples"].toString();
    const QJsonObject own = array.attributes["strativo"].toObject();
    const auto survey = matrix(own["survey"]);
    const auto world = matrix(own["world"]);
    const bool isPlaced = survey && world && header.space.setFromBlockToSurvey(*survey).empty() &&
                          header.space.setFromBlockToWorld(*world).empty();
    if (!isPlaced)
        header.note(QStringLiteral("The array does not say where it lies: lines and samples count from 0."));
    const auto number = [&own](const char* name, auto& target, int most) {
        if (const int value = own[QLatin1String(name)].toInt(-1); value >= 0 && value <= most)
            target = static_cast<std::remove_reference_t<decltype(target)>>(value);
    };
    number("horizontalUnit", header.horizontalUnit, static_cast<int>(georef::Unit::InchesUS));
    number("verticalUnit", header.verticalUnit, static_cast<int>(georef::Unit::InchesUS));
    number("domain", header.domain, static_cast<int>(georef::Domain::All));
    number("content", header.content, static_cast<int>(VolumeContent::Property));
    return header;
}

/// The elements of a chunk; false when it is not there and all of it is the fill value.
Result<bool> readChunk(const ZarrArray& array, const QString& name, std::vector<float>& elements)
{
    QFile file(array.folder + QLatin1Char('/') + name);
    if (!file.exists())
        return false;
    if (!file.open(QIODevice::ReadOnly))
        return Failure(QStringLiteral("%1: %2").arg(name, file.errorString()));
    const std::int64_t expected = array.chunkElements() * array.type.bytes();
    QByteArray bytes = file.read(expected + expected / 8 + (1 << 16));
    if (array.isCompressed) {
        QByteArray counted(4, '\0');
        qToBigEndian(static_cast<quint32>(expected), counted.data());
        bytes = qUncompress(counted + bytes);
    }
    if (bytes.size() != expected)
        return Failure(QStringLiteral("the chunk %1 is damaged").arg(name));
    array.type.toFloats(reinterpret_cast<const std::byte*>(bytes.constData()), elements.data(), array.chunkElements());
    return true;
}

/// The lines [first, end) of the volume, which are some of one row of chunks.
Result<void> readLines(const ZarrArray& array, std::int64_t first, std::int64_t end, std::vector<float>& lines,
                       std::vector<float>& chunk)
{
    const auto& [inlines, crosslines, samples] = array.extents;
    const std::int64_t row = first / array.chunk[0];
    for (std::int64_t j = 0; j * array.chunk[1] < crosslines; ++j)
        for (std::int64_t k = 0; k * array.chunk[2] < samples; ++k) {
            const QString name =
                QStringList{QString::number(row), QString::number(j), QString::number(k)}.join(array.separator);
            const Result<bool> isThere = readChunk(array, name, chunk);
            if (!isThere)
                return isThere.failure();
            if (!*isThere)
                std::fill(chunk.begin(), chunk.end(), array.fill);
            const std::int64_t width = std::min(array.chunk[1], crosslines - j * array.chunk[1]);
            const std::int64_t height = std::min(array.chunk[2], samples - k * array.chunk[2]);
            for (std::int64_t line = first; line < end; ++line)
                for (std::int64_t x = 0; x < width; ++x)
                    std::copy_n(chunk.data() + ((line - row * array.chunk[0]) * array.chunk[1] + x) * array.chunk[2],
                                height,
                                lines.data() + ((line - first) * crosslines + j * array.chunk[1] + x) * samples +
                                    k * array.chunk[2]);
        }
    return {};
}

} // namespace

Result<void> readZarr(const QString& path, const QString& volume, const VolumeOrders& orders, JobContext& context)
{
    const Result<ZarrArray> array = describeArray(path);
    if (!array)
        return cannotRead(path, array.failure());
    auto writer = VolumeWriter::create(volume, headerOf(*array, path), orders);
    if (!writer)
        return writer.failure();
    const Extents& extents = array->extents;
    const std::int64_t lineFloats = extents.crosslines * extents.samples;
    const std::int64_t most = std::clamp<std::int64_t>(g_tileBytes / (lineFloats * std::int64_t(sizeof(float))), 1,
                                                       std::min(array->chunk[0], extents.inlines));
    std::vector<float> lines(static_cast<std::size_t>(most * lineFloats));
    std::vector<float> chunk(static_cast<std::size_t>(array->chunkElements()));
    context.setSteps(2);
    {
        JobContext reading(context, 1);
        reading.setSteps(extents.inlines);
        for (std::int64_t first = 0; first < extents.inlines;) {
            if (context.cancelled())
                return JobContext::stopped();
            const std::int64_t rowEnd = (first / array->chunk[0] + 1) * array->chunk[0];
            const std::int64_t end = std::min({first + most, rowEnd, extents.inlines});
            if (Result<void> read = readLines(*array, first, end, lines, chunk); !read)
                return cannotRead(path, read.failure());
            for (std::int64_t line = first; line < end; ++line)
                if (Result<void> written =
                        (*writer)->writeTraces(static_cast<int>(line), 0, static_cast<int>(extents.crosslines),
                                               lines.data() + (line - first) * lineFloats);
                    !written)
                    return written;
            reading.advance(end - first);
            first = end;
        }
    }
    JobContext ending(context, 1);
    return (*writer)->finish(&ending);
}

} // namespace hv::arrays
