#include "host/arrays/ZarrFolder.h"
#include "host/core/Transform.h"
#include "host/volume/VolumeIo.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRandomGenerator>

#include <algorithm>
#include <cmath>

namespace hv::arrays {

namespace {

constexpr std::int64_t g_chunk = 64;
constexpr std::int64_t g_chunkSamples = 512;
constexpr int g_level = 1;       // of zlib: samples hardly get smaller with more
constexpr int g_lengthBytes = 4; // that Qt puts in front of what zlib makes

/// The folder while it is made; removed unless it is put into its place.
class PartFolder
{
public:
    explicit PartFolder(const QString& place)
        : m_place(QFileInfo(place).absoluteFilePath()),
          m_path(QStringLiteral("%1/.strativo-part-%2")
                     .arg(QFileInfo(m_place).path())
                     .arg(QRandomGenerator::global()->generate64(), 16, 16, QLatin1Char('0')))
    {}
    ~PartFolder()
    {
        if (!m_isPlaced)
            QDir(m_path).removeRecursively();
    }
    PartFolder(const PartFolder&) = delete;
    PartFolder& operator=(const PartFolder&) = delete;

    Result<void> make(const QString& folder = {})
    {
        if (!QDir().mkpath(m_path + QLatin1Char('/') + folder))
            return Failure(QStringLiteral("the folder cannot be made"));
        return {};
    }
    Result<void> write(const QString& name, const QByteArray& bytes)
    {
        QFile file(m_path + QLatin1Char('/') + name);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
            return Failure(file.errorString());
        return {};
    }
    Result<void> place()
    {
        if (QFileInfo::exists(m_place) || !QDir().rename(m_path, m_place))
            return Failure(QStringLiteral("there is something at its place"));
        m_isPlaced = true;
        return {};
    }

private:
    const QString m_place;
    const QString m_path;
    bool m_isPlaced = false;
};

QByteArray json(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Indented);
}

QByteArray compressed(const QByteArray& bytes)
{
    return qCompress(bytes, g_level).mid(g_lengthBytes);
}

QJsonArray matrix(const core::mat4& values)
{
    QJsonArray rows;
    for (std::size_t row = 0; row < 4; ++row)
        for (std::size_t column = 0; column < 4; ++column)
            rows.append(values[row][column]);
    return rows;
}

class ZarrWriter
{
public:
    ZarrWriter(const VolumeFile& volume, const QString& path, bool compresses)
        : m_volume(volume), m_header(volume.header()), m_folder(path), m_compresses(compresses),
          m_vertical(m_header.domain == georef::Domain::Depth ? QStringLiteral("depth") : QStringLiteral("time"))
    {}

    Result<void> run(JobContext& context)
    {
        if (Result<void> made = writeDescription(); !made)
            return made;
        if (Result<void> written = writeChunks(context); !written)
            return written;
        return m_folder.place();
    }

private:
    QJsonObject arrayDescription(const std::vector<std::int64_t>& shape, const std::vector<std::int64_t>& chunks,
                                 const char* type, const QJsonValue& fill) const
    {
        const auto list = [](const std::vector<std::int64_t>& values) {
            QJsonArray array;
            for (const std::int64_t value : values)
                array.append(static_cast<double>(value));
            return array;
        };
        const QJsonValue compressor =
            m_compresses ? QJsonValue(QJsonObject{{"id", "zlib"}, {"level", g_level}}) : QJsonValue();
        return {{"zarr_format", 2},       {"shape", list(shape)},
                {"chunks", list(chunks)}, {"dtype", QString::fromLatin1(type)},
                {"order", "C"},           {"compressor", compressor},
                {"fill_value", fill},     {"filters", QJsonValue()}};
    }

    /// An array's folder with what describes it, which the group's summary repeats.
    Result<void> writeArray(const QString& name, const QJsonObject& description, const QStringList& dimensions,
                            QJsonObject attributes = {})
    {
        attributes["_ARRAY_DIMENSIONS"] = QJsonArray::fromStringList(dimensions);
        m_summary[name + "/.zarray"] = description;
        m_summary[name + "/.zattrs"] = attributes;
        if (Result<void> made = m_folder.make(name); !made)
            return made;
        if (Result<void> written = m_folder.write(name + "/.zarray", json(description)); !written)
            return written;
        return m_folder.write(name + "/.zattrs", json(attributes));
    }

    /// A small array of doubles in one chunk.
    Result<void> writeNumbers(const QString& name, const std::vector<std::int64_t>& shape,
                              const QStringList& dimensions, const std::vector<double>& values,
                              const QJsonObject& attributes = {})
    {
        if (Result<void> made =
                writeArray(name, arrayDescription(shape, shape, "<f8", QJsonValue()), dimensions, attributes);
            !made)
            return made;
        const QByteArray bytes(reinterpret_cast<const char*>(values.data()),
                               static_cast<int>(values.size() * sizeof(double)));
        return m_folder.write(name + (shape.size() == 1 ? "/0" : "/0.0"), m_compresses ? compressed(bytes) : bytes);
    }

    Result<void> writeDescription()
    {
        if (Result<void> made = m_folder.make(); !made)
            return made;
        QJsonArray history;
        for (const HistoryEntry& entry : m_header.history)
            history.append(QStringLiteral("%1 %2").arg(entry.when.toString(Qt::ISODate), entry.what));
        const QJsonObject strativo{{"survey", matrix(m_header.space.fromBlockToSurvey())},
                                   {"world", matrix(m_header.space.fromBlockToWorld())},
                                   {"horizontalUnit", static_cast<int>(m_header.horizontalUnit)},
                                   {"verticalUnit", static_cast<int>(m_header.verticalUnit)},
                                   {"domain", static_cast<int>(m_header.domain)},
                                   {"content", static_cast<int>(m_header.content)}};
        const QJsonObject attributes{
            {"crs_wkt", m_header.crs}, {"samples", m_header.samples}, {"history", history}, {"strativo", strativo}};
        const QJsonObject group{{"zarr_format", 2}};
        m_summary[".zgroup"] = group;
        m_summary[".zattrs"] = attributes;
        if (Result<void> written = m_folder.write(".zgroup", json(group)); !written)
            return written;
        if (Result<void> written = m_folder.write(".zattrs", json(attributes)); !written)
            return written;
        const std::vector<std::int64_t> shape{m_header.inlines(), m_header.crosslines(), m_header.sampleCount()};
        m_chunks = {std::min(shape[0], g_chunk), std::min(shape[1], g_chunk), std::min(shape[2], g_chunkSamples)};
        if (Result<void> made =
                writeArray("samples", arrayDescription(shape, m_chunks, "<f4", double(m_header.noValue)),
                           {"inline", "crossline", m_vertical}, {{"coordinates", "x y"}});
            !made)
            return made;
        if (Result<void> written = writeCoordinates(); !written)
            return written;
        return m_folder.write(".zmetadata", json({{"zarr_consolidated_format", 1}, {"metadata", m_summary}}));
    }

    Result<void> writeCoordinates()
    {
        const georef::BlocSpace& space = m_header.space;
        const auto along = [&space](int count, const core::vec3& axis, double core::vec3::*part) {
            std::vector<double> values;
            for (int i = 0; i < count; ++i)
                values.push_back(core::transform(space.fromBlockToSurvey(), axis * double(i)).*part);
            return values;
        };
        const auto numbers = [this](const QString& name, const std::vector<double>& values) {
            return writeNumbers(name, {static_cast<std::int64_t>(values.size())}, {name}, values);
        };
        if (Result<void> written = numbers("inline", along(space.height(), {0, 1, 0}, &core::vec3::x)); !written)
            return written;
        if (Result<void> written = numbers("crossline", along(space.width(), {1, 0, 0}, &core::vec3::y)); !written)
            return written;
        if (Result<void> written = numbers(m_vertical, along(space.length(), {0, 0, 1}, &core::vec3::z)); !written)
            return written;
        std::vector<double> xs, ys;
        for (int y = 0; y < space.height(); ++y)
            for (int x = 0; x < space.width(); ++x) {
                const core::vec3 place = core::transform(space.fromBlockToWorld(), {double(x), double(y), 0});
                xs.push_back(place.x);
                ys.push_back(place.y);
            }
        const std::vector<std::int64_t> shape{space.height(), space.width()};
        if (Result<void> written = writeNumbers("x", shape, {"inline", "crossline"}, xs); !written)
            return written;
        return writeNumbers("y", shape, {"inline", "crossline"}, ys);
    }

    Result<void> writeChunks(JobContext& context)
    {
        const std::int64_t samples = m_header.sampleCount();
        const auto count = [](std::int64_t extent, std::int64_t chunk) { return (extent + chunk - 1) / chunk; };
        std::vector<float> traces(static_cast<std::size_t>(m_chunks[0] * m_chunks[1] * samples));
        context.setSteps(count(m_header.inlines(), m_chunks[0]) * count(m_header.crosslines(), m_chunks[1]));
        for (std::int64_t i = 0; i * m_chunks[0] < m_header.inlines(); ++i)
            for (std::int64_t j = 0; j * m_chunks[1] < m_header.crosslines(); ++j) {
                if (context.cancelled())
                    return JobContext::stopped();
                const auto first = static_cast<int>(j * m_chunks[1]);
                const int end = static_cast<int>(std::min<std::int64_t>(first + m_chunks[1], m_header.crosslines()));
                std::fill(traces.begin(), traces.end(), m_header.noValue);
                for (std::int64_t line = 0; line < m_chunks[0] && i * m_chunks[0] + line < m_header.inlines(); ++line)
                    if (Result<void> read = m_volume.readTraces(static_cast<int>(i * m_chunks[0] + line), first, end,
                                                                traces.data() + line * m_chunks[1] * samples);
                        !read)
                        return read;
                for (std::int64_t k = 0; k * m_chunks[2] < samples; ++k)
                    if (Result<void> written = writeChunk(QStringLiteral("samples/%1.%2.%3").arg(i).arg(j).arg(k),
                                                          traces, k * m_chunks[2]);
                        !written)
                        return written;
                context.advance();
            }
        return {};
    }

    Result<void> writeChunk(const QString& name, const std::vector<float>& traces, std::int64_t firstSample)
    {
        const std::int64_t samples = m_header.sampleCount();
        const std::int64_t count = std::min(m_chunks[2], samples - firstSample);
        std::vector<float> chunk(static_cast<std::size_t>(m_chunks[0] * m_chunks[1] * m_chunks[2]), m_header.noValue);
        for (std::int64_t trace = 0; trace < m_chunks[0] * m_chunks[1]; ++trace)
            std::copy_n(traces.data() + trace * samples + firstSample, count, chunk.data() + trace * m_chunks[2]);
        if (std::all_of(chunk.begin(), chunk.end(), [this](float value) { return value == m_header.noValue; }))
            return {};
        const auto bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(chunk.data()),
                                                   static_cast<int>(chunk.size() * sizeof(float)));
        return m_folder.write(name, m_compresses ? compressed(bytes) : bytes);
    }

    const VolumeFile& m_volume;
    const VolumeHeader& m_header;
    PartFolder m_folder;
    const bool m_compresses;
    const QString m_vertical;
    std::vector<std::int64_t> m_chunks;
    QJsonObject m_summary;
};

} // namespace

Result<void> writeZarr(const VolumeFile& volume, const QString& path, bool compresses, JobContext& context)
{
    ZarrWriter writer(volume, path, compresses);
    const Result<void> written = writer.run(context);
    if (!written && !written.failure().sentence.isEmpty())
        return cannotWrite(path, written.failure());
    return written;
}

} // namespace hv::arrays
