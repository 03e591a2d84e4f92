#include "host/segy/TraceWriter.h"

#include "host/formats/PartFile.h"
#include "host/segy/Fields.h"

#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <future>
#include <limits>
#include <segyio/segy.h>
#include <unistd.h>

namespace hv::segy {

namespace {

/// Of what is read, converted and written at once.
constexpr std::int64_t g_blockBytes = 8 << 20;
constexpr int g_mostSamples = std::numeric_limits<std::uint16_t>::max();
constexpr int g_largest16 = std::numeric_limits<std::int16_t>::max();
constexpr double g_largest32 = std::numeric_limits<std::int32_t>::max();
constexpr double g_microPerMilli = 1000;
/// Of a step, that a number may lie beside a whole one.
constexpr double g_rounding = 1e-3;
/// Coordinates below are degrees, of which hundredths would be a kilometre.
constexpr double g_degrees = 400;

/// Length or time units in metres or milliseconds; 0 for what is neither.
double factorOf(georef::Unit unit)
{
    switch (unit) {
    case georef::Unit::Meters:
    case georef::Unit::Milliseconds:
        return 1;
    case georef::Unit::Seconds:
    case georef::Unit::Kilometers:
        return 1000;
    case georef::Unit::Decimeters:
        return 0.1;
    case georef::Unit::Centimeters:
        return 0.01;
    default:
        return 0;
    }
}

/// The numbers of a file, in the form in which its headers hold them.
struct HeaderNumbers
{
    /// Line number = first + index * step.
    std::int64_t firstInline = 0, inlineStep = 0, firstCrossline = 0, crosslineStep = 0;
    std::int16_t interval = 0;
    std::int16_t delay = 0;
    std::int16_t delayScalar = 0;
    bool isFeet = false;
    bool hasCoordinates = false;
    std::int16_t scalar = 1;
    /// What a coordinate is multiplied by.
    double factor = 1;
};

std::optional<std::int64_t> whole(double number)
{
    const double rounded = std::round(number);
    if (!std::isfinite(number) || std::abs(number - rounded) > g_rounding || std::abs(rounded) > g_largest32)
        return {};
    return static_cast<std::int64_t>(rounded);
}

Result<void> findLines(const HVSegyDescription& description, HeaderNumbers& numbers)
{
    const auto line = [](double first, double second, int count, std::int64_t& start, std::int64_t& step) {
        const auto begin = whole(first);
        const auto by = whole(second - first);
        if (!begin || !by || !whole(first + (second - first) * (count - 1)))
            return false;
        start = *begin;
        step = *by;
        return true;
    };
    const georef::BlocSpace& space = description.space();
    if (!line(description.inlineNumber(0), description.inlineNumber(1), space.height(), numbers.firstInline,
              numbers.inlineStep) ||
        !line(description.crosslineNumber(0), description.crosslineNumber(1), space.width(), numbers.firstCrossline,
              numbers.crosslineStep))
        return Failure(QStringLiteral("its line numbers are not whole numbers of at most 32 bits"));
    return {};
}

Result<void> findSamples(const HVSegyDescription& description, HeaderNumbers& numbers)
{
    const int samples = description.space().length();
    if (samples > g_mostSamples)
        return Failure(
            QStringLiteral("a trace of SEG-Y has at most %1 samples, not %2").arg(g_mostSamples).arg(samples));
    numbers.isFeet =
        description.verticalUnit() == georef::Unit::Feet || description.verticalUnit() == georef::Unit::FeetUS;
    const double unit = numbers.isFeet ? 1 : factorOf(description.verticalUnit());
    if (unit == 0)
        return Failure(QStringLiteral("SEG-Y knows no samples in its vertical unit"));
    const double interval = description.interval() * unit * g_microPerMilli;
    const auto rounded = whole(interval);
    if (!rounded || *rounded < 1 || *rounded > g_largest16)
        return Failure(QStringLiteral("SEG-Y has no sample interval of %1; it takes 1 to %2 thousandths")
                           .arg(interval / g_microPerMilli)
                           .arg(g_largest16));
    numbers.interval = static_cast<std::int16_t>(*rounded);
    const double start = description.firstSample() * unit;
    for (const int fraction : {1, 10, 100, 1000}) {
        const auto delay = whole(start * fraction);
        if (!delay || std::abs(*delay) > g_largest16)
            continue;
        numbers.delay = static_cast<std::int16_t>(*delay);
        numbers.delayScalar = static_cast<std::int16_t>(fraction == 1 ? 1 : -fraction);
        return {};
    }
    return Failure(QStringLiteral("SEG-Y cannot say that samples begin at %1").arg(start));
}

Result<void> findCoordinates(const HVSegyDescription& description, HeaderNumbers& numbers)
{
    numbers.hasCoordinates = description.hasCoordinates();
    if (!numbers.hasCoordinates)
        return {};
    const int x = description.space().width() - 1;
    const int y = description.space().height() - 1;
    double largest = 0;
    for (const core::vec3& place : {description.position(0, 0), description.position(x, 0), description.position(0, y),
                                    description.position(x, y)})
        largest = std::max({largest, std::abs(place.x), std::abs(place.y)});
    // Beginning with the finest; a negative scalar divides.
    for (const int scalar : {-10000, -100, -10, 1, 10, 100, 1000, 10000}) {
        const double factor = scalar < 0 ? -scalar : 1.0 / scalar;
        if ((scalar == -10000 && largest > g_degrees) || !(largest * factor < g_largest32))
            continue;
        numbers.scalar = static_cast<std::int16_t>(scalar);
        numbers.factor = factor;
        return {};
    }
    return Failure(QStringLiteral("its coordinates are too large for SEG-Y"));
}

Result<HeaderNumbers> findNumbers(const HVSegyDescription& description)
{
    HeaderNumbers numbers;
    if (!description.space().isValid())
        return Failure(QStringLiteral("it has no samples"));
    for (const auto& find : {findLines, findSamples, findCoordinates})
        if (Result<void> found = find(description, numbers); !found)
            return found.failure();
    return numbers;
}

QByteArray binaryHeader(const HVSegyDescription& description, const HeaderNumbers& numbers)
{
    QByteArray header(static_cast<int>(g_binaryBytes), '\0');
    const auto set = [&header](int field, int value) { segy_set_bfield(header.data(), field, value); };
    set(SEGY_BIN_LINE_NUMBER, 1);
    set(SEGY_BIN_REEL_NUMBER, 1);
    set(SEGY_BIN_TRACES, 1);
    set(SEGY_BIN_INTERVAL, numbers.interval);
    set(SEGY_BIN_SAMPLES, static_cast<std::int16_t>(description.space().length()));
    set(SEGY_BIN_FORMAT, static_cast<int>(description.format()));
    set(SEGY_BIN_ENSEMBLE_FOLD, 1);
    set(SEGY_BIN_SORTING_CODE, 4); // stacked
    set(SEGY_BIN_MEASUREMENT_SYSTEM, numbers.isFeet ? 2 : 1);
    set(SEGY_BIN_SEGY_REVISION, 0x0100);
    set(SEGY_BIN_TRACE_FLAG, 1);
    return header;
}

/// Makes the blocks of a file, one after the other.
class BlockMaker
{
public:
    BlockMaker(const HVSegyDescription& description, const HeaderNumbers& numbers, float noValue)
        : m_description(description), m_numbers(numbers), m_noValue(noValue),
          m_samples(static_cast<std::size_t>(description.space().length())),
          m_traceBytes(g_headerBytes + m_samples * bytesPerSample(description.format()))
    {
        const auto set = [this](int field, int value) { segy_set_field(m_header.data(), field, value); };
        set(SEGY_TR_NUM_IN_ENSEMBLE, 1);
        set(SEGY_TR_SUMMED_TRACES, 1);
        set(SEGY_TR_STACKED_TRACES, 1);
        set(SEGY_TR_DATA_USE, 1);
        set(SEGY_TR_SOURCE_GROUP_SCALAR, numbers.scalar);
        set(SEGY_TR_COORD_UNITS, numbers.hasCoordinates ? 1 : 0);
        set(SEGY_TR_DELAY_REC_TIME, numbers.delay);
        set(SEGY_TR_SCALAR_TRACE_HEADER, numbers.delayScalar);
        set(SEGY_TR_SAMPLE_COUNT, static_cast<std::int16_t>(description.space().length()));
        set(SEGY_TR_SAMPLE_INTER, numbers.interval);
    }

    std::size_t traceBytes() const { return m_traceBytes; }
    const WriteCounts& counts() const { return m_counts; }

    /// Appends a trace to `block`; `samples` are changed where they hold no value.
    void add(int y, int x, float* samples, std::vector<std::byte>& block)
    {
        const std::int64_t holes =
            std::count_if(samples, samples + m_samples, [this](float value) { return isHole(value); });
        const bool isMissing = holes == static_cast<std::int64_t>(m_samples);
        m_counts.missing += isMissing;
        m_counts.holes += isMissing ? 0 : holes;
        if (isMissing && m_description.leavesOutMissing())
            return;
        if (holes > 0)
            std::replace_if(
                samples, samples + m_samples, [this](float value) { return isHole(value); }, 0.0F);
        ++m_counts.written;
        const std::size_t begin = block.size();
        block.resize(begin + m_traceBytes);
        fillHeader(y, x, isMissing);
        std::copy_n(reinterpret_cast<const std::byte*>(m_header.data()), g_headerBytes, block.data() + begin);
        encode(m_description.format(), samples, block.data() + begin + g_headerBytes, m_samples);
    }

private:
    bool isHole(float value) const { return value == m_noValue || std::isnan(value); }

    void fillHeader(int y, int x, bool isMissing)
    {
        const auto set = [this](int field, std::int64_t value) {
            segy_set_field(m_header.data(), field, static_cast<std::int32_t>(value));
        };
        const std::int64_t inlineNumber = m_numbers.firstInline + y * m_numbers.inlineStep;
        const std::int64_t crosslineNumber = m_numbers.firstCrossline + x * m_numbers.crosslineStep;
        set(SEGY_TR_SEQ_LINE, x + 1);
        set(SEGY_TR_SEQ_FILE, m_counts.written);
        set(SEGY_TR_FIELD_RECORD, inlineNumber);
        set(SEGY_TR_ENSEMBLE, crosslineNumber);
        set(SEGY_TR_TRACE_ID, isMissing ? 2 : 1);
        set(SEGY_TR_INLINE, inlineNumber);
        set(SEGY_TR_CROSSLINE, crosslineNumber);
        if (!m_numbers.hasCoordinates)
            return;
        const core::vec3 place = m_description.position(x, y);
        const std::int64_t mapX = std::llround(place.x * m_numbers.factor);
        const std::int64_t mapY = std::llround(place.y * m_numbers.factor);
        set(SEGY_TR_SOURCE_X, mapX);
        set(SEGY_TR_SOURCE_Y, mapY);
        set(SEGY_TR_CDP_X, mapX);
        set(SEGY_TR_CDP_Y, mapY);
    }

    const HVSegyDescription& m_description;
    const HeaderNumbers& m_numbers;
    const float m_noValue;
    const std::size_t m_samples;
    const std::size_t m_traceBytes;
    std::array<char, g_headerBytes> m_header{};
    WriteCounts m_counts;
};

/// The system's error number, 0 when all is written.
int writeAllAt(int file, const std::byte* bytes, std::size_t count, std::int64_t offset)
{
    std::size_t done = 0;
    while (done < count) {
        const ssize_t written = pwrite(file, bytes + done, count - done, offset + static_cast<std::int64_t>(done));
        if (written < 0 && errno != EINTR)
            return errno;
        done += static_cast<std::size_t>(std::max<ssize_t>(written, 0));
    }
    return 0;
}

/// One block is written while the next one is made.
class BlockQueue
{
public:
    BlockQueue(int file, std::int64_t offset) : m_file(file), m_offset(offset) {}
    ~BlockQueue() { wait(); }

    /// Takes the block and leaves an empty one. Tells what became of the one before.
    int put(std::vector<std::byte>& block)
    {
        if (const int error = wait(); error != 0)
            return error;
        m_block.swap(block);
        block.clear();
        m_writing = std::async(std::launch::async,
                               [this] { return writeAllAt(m_file, m_block.data(), m_block.size(), m_offset); });
        return 0;
    }
    int wait()
    {
        if (!m_writing.valid())
            return 0;
        const int error = m_writing.get();
        m_offset += static_cast<std::int64_t>(m_block.size());
        return error;
    }

private:
    const int m_file;
    std::int64_t m_offset;
    std::vector<std::byte> m_block;
    std::future<int> m_writing;
};

} // namespace

Result<WriteCounts> writeTraces(int file, const HVSegyDescription& description, float noValue, const ReadTraces& read,
                                JobContext& context)
{
    const Result<HeaderNumbers> numbers = findNumbers(description);
    if (!numbers)
        return numbers.failure();
    const QString text = description.textualHeader();
    const Result<QByteArray> rows =
        encodeText(text.isEmpty() ? description.defaultTextualHeader() : text, description.encoding());
    if (!rows)
        return rows.failure();
    const QByteArray front = *rows + binaryHeader(description, *numbers);
    const auto systemFailure = [](int number) { return Failure(qt_error_string(number)); };
    if (const int error = writeAllAt(file, reinterpret_cast<const std::byte*>(front.constData()),
                                     static_cast<std::size_t>(front.size()), 0);
        error != 0)
        return systemFailure(error);

    const georef::BlocSpace& space = description.space();
    BlockMaker maker(description, *numbers, noValue);
    const auto atOnce = static_cast<int>(
        std::clamp<std::int64_t>(g_blockBytes / static_cast<std::int64_t>(maker.traceBytes()), 1, space.width()));
    std::vector<float> samples(static_cast<std::size_t>(atOnce) * static_cast<std::size_t>(space.length()));
    std::vector<std::byte> block;
    BlockQueue queue(file, front.size());
    context.setSteps(space.height());
    for (int y = 0; y < space.height(); ++y) {
        for (int first = 0; first < space.width(); first += atOnce) {
            if (context.cancelled())
                return JobContext::stopped();
            const int end = std::min(first + atOnce, space.width());
            if (Result<void> got = read(y, first, end, samples.data()); !got)
                return got.failure();
            for (int x = first; x < end; ++x)
                maker.add(y, x,
                          samples.data() +
                              static_cast<std::size_t>(x - first) * static_cast<std::size_t>(space.length()),
                          block);
            if (static_cast<std::int64_t>(block.size()) >= g_blockBytes / 2)
                if (const int error = queue.put(block); error != 0)
                    return systemFailure(error);
        }
        context.advance();
    }
    if (const int error = queue.put(block); error != 0)
        return systemFailure(error);
    if (const int error = queue.wait(); error != 0)
        return systemFailure(error);
    return maker.counts();
}

Result<WriteCounts> writeSegy(const QString& path, const HVSegyDescription& description, float noValue,
                              const ReadTraces& read, JobContext& context)
{
    const auto failed = [&path](QString reason) {
        if (reason.endsWith(QLatin1Char('.')))
            reason.chop(1);
        return reason.isEmpty()
                   ? JobContext::stopped()
                   : Failure(QStringLiteral("\"%1\" cannot be written: %2.").arg(QFileInfo(path).fileName(), reason),
                             path);
    };
    PartFile part;
    if (const auto opened = part.open(path); !opened)
        return failed(opened.failure().sentence);
    if (!description.leavesOutMissing())
        if (const auto reserved = part.reserve(description.sizeInBytes()); !reserved)
            return failed(reserved.failure().sentence);
    const Result<WriteCounts> written = writeTraces(part.descriptor(), description, noValue, read, context);
    if (!written)
        return failed(written.failure().sentence);
    if (const auto done = part.putInPlace(); !done)
        return failed(done.failure().sentence);
    return written;
}

} // namespace hv::segy
