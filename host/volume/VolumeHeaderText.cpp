#include "host/volume/VolumeHeaderText.h"

#include "host/formats/SettingNames.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <cmath>

namespace hv {

namespace {

using georef::BlocSpace;
using georef::ScanOrientation;

constexpr int g_major = 1;
const QString g_version = QStringLiteral("1.0");
const QLatin1String g_format("strativo volume");
const QLatin1String g_sampleType("float32 little-endian");

const char* orderName(ScanOrientation orientation)
{
    constexpr const char* names[] = {"inline", "crossline", "timeslice"};
    return names[static_cast<int>(orientation)];
}

// Texts of JSON -------------------------------------------------------------------------------------------------------

QJsonArray matrixToJson(const core::mat4& matrix)
{
    QJsonArray rows;
    for (std::size_t r = 0; r < 4; ++r)
        for (std::size_t c = 0; c < 4; ++c)
            rows.append(matrix[r][c]);
    return rows;
}

QJsonObject statisticsToJson(const VolumeStatistics& statistics)
{
    QJsonArray percentiles;
    for (const auto& [percent, value] : statistics.percentiles)
        percentiles.append(QJsonArray{percent, double(value)});
    // Numbers of JSON are doubles to many readers; 2^53 samples are more than a disk holds.
    return {{QStringLiteral("count"), double(statistics.count)},
            {QStringLiteral("mean"), statistics.mean},
            {QStringLiteral("deviation"), statistics.deviation},
            {QStringLiteral("minimum"), double(statistics.minimum)},
            {QStringLiteral("maximum"), double(statistics.maximum)},
            {QStringLiteral("percentiles"), percentiles}};
}

QByteArray ordersText(const VolumeHeader& header, const VolumeLayout& layout)
{
    QByteArray text;
    for (const ScanOrientation orientation : scanOrientations)
        if (const auto& order = layout.order(orientation)) {
            const FrameShape shape = frameShape(header.space, orientation);
            text += text.isEmpty() ? "" : ",";
            text += R"({"order":")" + QByteArray(orderName(orientation)) + R"(","state":")" +
                    volumeMark(order->isWhole) + R"(","offset":)" + QByteArray::number(qint64(order->offset)) +
                    R"(,"shape":[)" + QByteArray::number(shape.count) + ',' + QByteArray::number(shape.height) + ',' +
                    QByteArray::number(shape.width) + "]}";
        }
    return text;
}

// What is read --------------------------------------------------------------------------------------------------------

/// Collects the first fault, so that the members are read one after the other without an `if` each.
class MemberReader
{
public:
    explicit MemberReader(QJsonObject object) : m_object(std::move(object)) {}

    const QString& fault() const { return m_fault; }
    /// Members that nobody has asked for.
    const QJsonObject& rest() const { return m_object; }

    void refuse(const char* member)
    {
        if (m_fault.isEmpty())
            m_fault = QStringLiteral("its header has no valid \"%1\"").arg(QLatin1String(member));
    }
    QJsonValue take(const char* member) { return m_object.take(QLatin1String(member)); }

    QString text(const char* member)
    {
        const QJsonValue value = take(member);
        if (!value.isString())
            refuse(member);
        return value.toString();
    }
    double number(const char* member)
    {
        const QJsonValue value = take(member);
        if (!value.isDouble() || !std::isfinite(value.toDouble()))
            refuse(member);
        return value.toDouble();
    }
    /// Of a sample: within the range of its type.
    float sample(const char* member)
    {
        const double value = number(member);
        if (!std::isfinite(static_cast<float>(value)))
            refuse(member);
        return static_cast<float>(value);
    }
    std::int64_t whole(const char* member, std::int64_t least, std::int64_t most)
    {
        const double value = number(member);
        if (value != std::floor(value) || value < double(least) || value > double(most)) {
            refuse(member);
            return least;
        }
        return static_cast<std::int64_t>(value);
    }
    QJsonObject object(const char* member)
    {
        const QJsonValue value = take(member);
        if (!value.isObject())
            refuse(member);
        return value.toObject();
    }
    QJsonArray array(const char* member)
    {
        const QJsonValue value = take(member);
        if (!value.isArray())
            refuse(member);
        return value.toArray();
    }
    template <class T>
    T named(const char* member, std::optional<T> (*fromName)(const QString&), T otherwise)
    {
        const auto value = fromName(text(member));
        if (!value)
            refuse(member);
        return value.value_or(otherwise);
    }

private:
    QJsonObject m_object;
    QString m_fault;
};

std::optional<core::mat4> matrixFromJson(const QJsonArray& numbers)
{
    if (numbers.size() != 16)
        return std::nullopt;
    core::mat4 matrix = core::mat4::identity();
    for (int i = 0; i < 16; ++i) {
        if (!numbers[i].isDouble())
            return std::nullopt;
        matrix[static_cast<std::size_t>(i / 4)][static_cast<std::size_t>(i % 4)] = numbers[i].toDouble();
    }
    // A grid has no perspective.
    const bool isAffine = matrix[3][0] == 0.0 && matrix[3][1] == 0.0 && matrix[3][2] == 0.0 && matrix[3][3] == 1.0;
    return isAffine ? std::optional(matrix) : std::nullopt;
}

void readSpace(MemberReader& reader, BlocSpace& space)
{
    MemberReader extents(reader.object("extents"));
    const auto extent = [&](const char* name) {
        return static_cast<int>(extents.whole(name, 1, std::numeric_limits<int>::max()));
    };
    const int inlines = extent("inlines");
    const int crosslines = extent("crosslines");
    space.setExtents(crosslines, inlines, extent("samples"));
    if (!extents.fault().isEmpty() || !sampleBytes(space))
        reader.refuse("extents");
    const auto survey = matrixFromJson(reader.array("blockToSurvey"));
    if (!survey || !space.setFromBlockToSurvey(*survey).empty())
        reader.refuse("blockToSurvey");
    const auto world = matrixFromJson(reader.array("blockToWorld"));
    if (!world || !space.setFromBlockToWorld(*world).empty())
        reader.refuse("blockToWorld");
}

void readOrders(MemberReader& reader, const BlocSpace& space, std::int64_t fileSize, VolumeLayout& layout)
{
    const std::int64_t bytes = sampleBytes(space).value_or(0);
    std::vector<std::int64_t> offsets;
    for (const QJsonValue& each : reader.array("orders")) {
        MemberReader order(each.toObject());
        const QString name = order.text("order");
        const QString state = order.text("state");
        VolumeOrder placed;
        placed.offset = order.whole("offset", volumeHeaderBytes * volumeHeaderCopies, std::int64_t(1) << 53);
        placed.isWhole = state == QString::fromLatin1(volumeMark(true));
        const auto orientation = std::find_if(scanOrientations.begin(), scanOrientations.end(),
                                              [&](ScanOrientation o) { return name == QLatin1String(orderName(o)); });
        if (!order.fault().isEmpty() || orientation == scanOrientations.end() || layout.order(*orientation) ||
            placed.offset % volumePage != 0 || (!placed.isWhole && state != QString::fromLatin1(volumeMark(false)))) {
            reader.refuse("orders");
            return;
        }
        layout.order(*orientation) = placed;
        offsets.push_back(placed.offset);
    }
    std::sort(offsets.begin(), offsets.end());
    for (std::size_t i = 1; i < offsets.size(); ++i)
        if (offsets[i] - offsets[i - 1] < bytes)
            reader.refuse("orders");
    const auto& first = layout.order(ScanOrientation::Inline);
    if (!first || !first->isWhole)
        reader.refuse("orders");
    // Nothing else is as likely to happen to a large file.
    if (reader.fault().isEmpty() && layout.fileSize(space) > fileSize)
        reader.refuse("orders");
}

std::optional<VolumeStatistics> readStatistics(MemberReader& reader)
{
    const QJsonValue value = reader.take("statistics");
    if (value.isUndefined() || value.isNull())
        return std::nullopt;
    MemberReader members(value.toObject());
    VolumeStatistics statistics;
    statistics.count = members.whole("count", 0, std::int64_t(1) << 60);
    statistics.mean = members.number("mean");
    statistics.deviation = members.number("deviation");
    statistics.minimum = members.sample("minimum");
    statistics.maximum = members.sample("maximum");
    for (const QJsonValue& each : members.array("percentiles")) {
        const QJsonArray pair = each.toArray();
        const double percent = pair.at(0).toDouble(-1.0);
        const double number = pair.at(1).toDouble(HUGE_VAL);
        const double before = statistics.percentiles.empty() ? -1.0 : statistics.percentiles.back().first;
        if (pair.size() != 2 || percent < 0.0 || percent > 100.0 || percent <= before ||
            !std::isfinite(static_cast<float>(number))) {
            members.refuse("percentiles");
            break;
        }
        statistics.percentiles.emplace_back(percent, static_cast<float>(number));
    }
    if (!members.fault().isEmpty())
        reader.refuse("statistics");
    return statistics;
}

std::vector<HistoryEntry> readHistory(MemberReader& reader)
{
    std::vector<HistoryEntry> history;
    for (const QJsonValue& each : reader.array("history")) {
        MemberReader members(each.toObject());
        const QDateTime when = QDateTime::fromString(members.text("when"), Qt::ISODate);
        history.push_back({when, members.text("what")});
        if (!members.fault().isEmpty() || !when.isValid())
            reader.refuse("history");
    }
    return history;
}

std::optional<VolumeContent> contentFromName(const QString& name)
{
    if (name == QLatin1String("seismic"))
        return VolumeContent::Seismic;
    if (name == QLatin1String("property"))
        return VolumeContent::Property;
    return std::nullopt;
}

/// One copy of the header.
Result<VolumeFileHead> parseCopy(const QByteArray& line, std::int64_t fileSize)
{
    QJsonParseError problem{};
    const QJsonDocument document = QJsonDocument::fromJson(line, &problem);
    if (problem.error != QJsonParseError::NoError || !document.isObject() ||
        document.object().value(QLatin1String("format")) != g_format)
        return Failure(QStringLiteral("it is no volume file"));
    MemberReader reader(document.object());
    reader.take("format");
    const QString version = reader.text("version");
    bool isNumber = false;
    const int found = version.section(QLatin1Char('.'), 0, 0).toInt(&isNumber);
    if (!isNumber || found < 1)
        reader.refuse("version");
    else if (found > g_major)
        return Failure(QStringLiteral("it was written by a later version of Strativo (its format is %1, this version "
                                      "reads up to %2.x)")
                           .arg(version, QString::number(g_major)));
    VolumeFileHead head;
    VolumeHeader& header = head.header;
    if (reader.text("sampleType") != g_sampleType)
        reader.refuse("sampleType");
    readSpace(reader, header.space);
    header.crs = reader.text("crs");
    header.horizontalUnit = reader.named("horizontalUnit", unitFromName, georef::Unit::Meters);
    header.verticalUnit = reader.named("verticalUnit", unitFromName, georef::Unit::Milliseconds);
    header.domain = reader.named("domain", domainFromName, georef::Domain::Time);
    header.noValue = reader.sample("noValue");
    header.content = reader.named("content", contentFromName, VolumeContent::Seismic);
    header.samples = reader.text("samples");
    header.statistics = readStatistics(reader);
    header.history = readHistory(reader);
    const QString fault = reader.fault();
    if (!fault.isEmpty())
        return Failure(fault);
    readOrders(reader, header.space, fileSize, head.layout);
    if (!reader.fault().isEmpty()) {
        const std::int64_t needed = head.layout.fileSize(header.space);
        if (needed > fileSize && head.layout.order(ScanOrientation::Inline))
            return Failure(QStringLiteral("it is not whole: it has %1 bytes instead of %2")
                               .arg(QString::number(fileSize), QString::number(needed)));
        return Failure(reader.fault());
    }
    header.further = reader.rest();
    return head;
}

} // namespace

QByteArray volumeMark(bool isWhole)
{
    return isWhole ? QByteArrayLiteral("whole") : QByteArrayLiteral("stale");
}

int volumeMarkPosition(const QByteArray& line, ScanOrientation orientation)
{
    // As ordersText() writes it, which no text within JSON can hold: its quotes would be escaped.
    const QByteArray before = R"({"order":")" + QByteArray(orderName(orientation)) + R"(","state":")";
    const int at = line.indexOf(before);
    return at < 0 ? -1 : at + before.size();
}

Result<QByteArray> volumeHeaderText(const VolumeFileHead& head)
{
    const VolumeHeader& header = head.header;
    QJsonObject object = header.further;
    object.insert(QStringLiteral("sampleType"), g_sampleType);
    object.insert(QStringLiteral("extents"), QJsonObject{{QStringLiteral("inlines"), header.inlines()},
                                                         {QStringLiteral("crosslines"), header.crosslines()},
                                                         {QStringLiteral("samples"), header.sampleCount()}});
    object.insert(QStringLiteral("blockToSurvey"), matrixToJson(header.space.fromBlockToSurvey()));
    object.insert(QStringLiteral("blockToWorld"), matrixToJson(header.space.fromBlockToWorld()));
    object.insert(QStringLiteral("crs"), header.crs);
    object.insert(QStringLiteral("horizontalUnit"), unitName(header.horizontalUnit));
    object.insert(QStringLiteral("verticalUnit"), unitName(header.verticalUnit));
    object.insert(QStringLiteral("domain"), domainName(header.domain));
    object.insert(QStringLiteral("noValue"), double(header.noValue));
    object.insert(QStringLiteral("content"),
                  header.content == VolumeContent::Seismic ? QStringLiteral("seismic") : QStringLiteral("property"));
    object.insert(QStringLiteral("samples"), header.samples);
    if (header.statistics)
        object.insert(QStringLiteral("statistics"), statisticsToJson(*header.statistics));
    QJsonArray history;
    for (const HistoryEntry& entry : header.history)
        history.append(QJsonObject{{QStringLiteral("when"), entry.when.toUTC().toString(Qt::ISODate)},
                                   {QStringLiteral("what"), entry.what}});
    object.insert(QStringLiteral("history"), history);

    QByteArray line = R"({"format":")" + QByteArray(g_format.latin1()) + R"(","version":")" + g_version.toLatin1() +
                      R"(","orders":[)" + ordersText(header, head.layout) + "]," +
                      QJsonDocument(object).toJson(QJsonDocument::Compact).mid(1);
    if (line.size() >= volumeHeaderBytes)
        return Failure(QStringLiteral("its history and its other texts are longer than the %1 bytes that a header has")
                           .arg(volumeHeaderBytes));
    line = line.leftJustified(static_cast<int>(volumeHeaderBytes) - 1, ' ') + '\n';
    return line;
}

Result<VolumeFileHead> parseVolumeHeader(const QByteArray& bytes, std::int64_t fileSize)
{
    Result<VolumeFileHead> first = parseCopy(bytes.left(volumeHeaderBytes), fileSize);
    if (first || bytes.size() < volumeHeaderBytes * volumeHeaderCopies)
        return first;
    // The program ended while it wrote the first.
    Result<VolumeFileHead> second = parseCopy(bytes.mid(volumeHeaderBytes, volumeHeaderBytes), fileSize);
    return second ? second : first;
}

} // namespace hv
