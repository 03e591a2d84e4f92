#include "host/segy/SegyFile.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cmath>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace hv::segy {

namespace {

constexpr std::int64_t g_frontBytes = g_textBytes + g_binaryBytes;
/// Longer traces would have to be held in memory.
constexpr std::int64_t g_mostSamples = std::int64_t(1) << 24;
/// A file that says that the number of its extended headers varies is not searched further.
constexpr int g_mostTexts = 1000;
constexpr std::int32_t g_orderMark = 16909060; // 01 02 03 04
constexpr int g_codes = 16;                    // of formats

namespace bin {
constexpr int interval = 3217, samples = 3221, format = 3225, system = 3255;
constexpr int longSamples = 3269, exactInterval = 3273, orderMark = 3297, revision = 3501;
constexpr int texts = 3505, additionalHeaders = 3507, firstTrace = 3521, trailers = 3529;
} // namespace bin

const std::byte* bytesOf(const QByteArray& array)
{
    return reinterpret_cast<const std::byte*>(array.constData());
}

std::int64_t modifiedAt(const struct stat& state)
{
    return std::int64_t(state.st_mtim.tv_sec) * 1'000'000'000 + state.st_mtim.tv_nsec;
}

} // namespace

SegyFile::~SegyFile()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

Failure SegyFile::failure(const QString& sentence) const
{
    return Failure(QStringLiteral("\"%1\" cannot be read as SEG-Y: %2").arg(QFileInfo(m_path).fileName(), sentence),
                   m_path);
}

Result<std::shared_ptr<const SegyFile>> SegyFile::open(const QString& path, const FormatChoice& choice)
{
    std::shared_ptr<SegyFile> file(new SegyFile);
    file->m_path = path;
    file->m_descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat state
    {};
    if (file->m_descriptor < 0 || fstat(file->m_descriptor, &state) != 0)
        return file->failure(QStringLiteral("%1.").arg(qt_error_string(errno)));
    if (!S_ISREG(state.st_mode))
        return file->failure(QStringLiteral("it is not an ordinary file."));
    file->m_modified = modifiedAt(state);
    file->m_layout.fileBytes = state.st_size;
    if (state.st_size == 0)
        return file->failure(QStringLiteral("it is empty."));
    if (state.st_size < g_frontBytes)
        return file->failure(
            QStringLiteral("it has %1 bytes, and the headers alone take %2.").arg(state.st_size).arg(g_frontBytes));
    if (Result<void> found = file->findLayout(choice); !found)
        return found.failure();
    return std::shared_ptr<const SegyFile>(std::move(file));
}

Result<void> SegyFile::readAt(std::int64_t offset, void* target, std::int64_t bytes) const
{
    std::int64_t done = 0;
    while (done < bytes) {
        const ssize_t got = pread(m_descriptor, static_cast<char*>(target) + done,
                                  static_cast<std::size_t>(bytes - done), offset + done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return failure(QStringLiteral("%1.").arg(qt_error_string(errno)));
        if (got == 0)
            return failure(QStringLiteral("it ends at byte %1, earlier than when it was opened.").arg(offset + done));
        done += got;
    }
    return {};
}

std::int32_t SegyFile::binary(int byte, int size) const
{
    const std::byte* const at = bytesOf(m_binary) + (byte - 1 - g_textBytes);
    return size == 2 ? int16At(at, m_layout.order) : int32At(at, m_layout.order);
}

std::int32_t SegyFile::binaryValue(const Field& field) const
{
    return binary(field.byte, field.size);
}

bool SegyFile::isInFeet() const
{
    return binary(bin::system, 2) == 2;
}

Result<void> SegyFile::findLayout(const FormatChoice& choice)
{
    m_text.resize(g_textBytes);
    m_binary.resize(g_binaryBytes);
    if (Result<void> read = readAt(0, m_text.data(), g_textBytes); !read)
        return read;
    if (Result<void> read = readAt(g_textBytes, m_binary.data(), g_binaryBytes); !read)
        return read;
    const Result<ByteOrder> order = findOrder(choice);
    if (!order)
        return order.failure();
    m_layout.order = *order;
    if (Result<void> found = findFormat(choice); !found)
        return found;
    findRevision();
    if (Result<void> read = readTexts(choice); !read)
        return read;
    return findSamples(choice);
}

Result<ByteOrder> SegyFile::findOrder(const FormatChoice& choice)
{
    if (choice.order)
        return *choice.order;
    // Plausible numbers under each order; what is the same both ways decides nothing.
    const auto points = [this](ByteOrder order) {
        const std::byte* const all = bytesOf(m_binary);
        const auto value = [all, order](int byte) { return int16At(all + (byte - 1 - g_textBytes), order); };
        int sum = 0;
        const std::int16_t format = value(bin::format);
        sum += format >= 1 && format <= g_codes ? 4 : 0;
        sum += value(bin::interval) > 0 && value(bin::interval) % 10 == 0 ? 1 : 0;
        sum += value(bin::samples) > 0 && value(bin::samples) < 20'000 ? 1 : 0;
        const int revision = value(bin::revision) >> 8;
        sum += value(bin::revision) > 0 && revision <= 2 && (value(bin::revision) & 0xff) < 8 ? 1 : 0;
        sum += int32At(all + (bin::orderMark - 1 - g_textBytes), order) == g_orderMark ? 8 : 0;
        return sum;
    };
    const int big = points(ByteOrder::Big);
    const int little = points(ByteOrder::Little);
    const ByteOrder order = little > big ? ByteOrder::Little : ByteOrder::Big;
    if (order == ByteOrder::Little)
        m_remarks.found(
            QStringLiteral("The file is little-endian: only so do the numbers of its binary header make sense."));
    return order;
}

Result<void> SegyFile::findFormat(const FormatChoice& choice)
{
    const int code = binary(bin::format, 2);
    if (choice.format) {
        m_layout.format = *choice.format;
        if (code != static_cast<int>(*choice.format))
            m_remarks.assumed(QStringLiteral("Samples are read as %1; the file says format %2.")
                                  .arg(nameOf(*choice.format))
                                  .arg(code));
        return {};
    }
    if (const std::optional<SampleFormat> format = sampleFormat(code)) {
        m_layout.format = *format;
        m_remarks.found(QStringLiteral("Samples are %1, %2.").arg(nameOf(*format), nameOf(m_layout.order)));
        return {};
    }
    if (code >= 1 && code <= g_codes)
        return failure(QStringLiteral("its samples are of format %1, which is not read.").arg(code));
    return failure(
        QStringLiteral("its binary header names the sample format %1, which there is not; it may be no SEG-Y "
                       "file, or the format must be given.")
            .arg(code));
}

void SegyFile::findRevision()
{
    const auto revision = static_cast<std::uint16_t>(binary(bin::revision, 2));
    const int major = revision >> 8;
    if (major > 2) {
        m_remarks.assumed(
            QStringLiteral("The file names the revision %1.%2, which there is not; it is read as revision 0.")
                .arg(major)
                .arg(revision & 0xff));
        return;
    }
    m_layout.majorRevision = major;
    m_layout.minorRevision = revision & 0xff;
}

Result<void> SegyFile::readTexts(const FormatChoice& choice)
{
    const std::optional<TextEncoding> guess = choice.encoding ? choice.encoding : guessEncoding(m_text);
    m_encoding = guess.value_or(TextEncoding::Ebcdic);
    if (guess)
        m_remarks.found(QStringLiteral("The textual header is %1.").arg(nameOf(m_encoding)));
    else
        m_remarks.doubtful(QStringLiteral("The textual header is neither EBCDIC nor ASCII."));
    m_texts.push_back(decodeText(m_text, m_encoding));
    m_layout.firstTrace = g_frontBytes;
    const int wanted = m_layout.majorRevision >= 1 ? binary(bin::texts, 2) : 0;
    const auto most =
        static_cast<int>(std::min<std::int64_t>(g_mostTexts, (m_layout.fileBytes - g_frontBytes) / g_textBytes));
    if (wanted < -1 || wanted > most) {
        m_remarks.doubtful(
            QStringLiteral("The file names %1 extended textual headers, which it cannot hold; none is read.")
                .arg(wanted));
        return {};
    }
    bool isEnd = false;
    for (int i = 0; i < (wanted < 0 ? most : wanted) && !isEnd; ++i) {
        QByteArray text(static_cast<int>(g_textBytes), '\0');
        if (Result<void> read = readAt(m_layout.firstTrace, text.data(), g_textBytes); !read)
            return read;
        QStringList rows = decodeText(text, guessEncoding(text).value_or(m_encoding));
        isEnd = wanted < 0 && rows.join(QString()).contains(QStringLiteral("((SEG: EndText))"), Qt::CaseInsensitive);
        m_texts.push_back(std::move(rows));
        m_layout.firstTrace += g_textBytes;
        ++m_layout.extendedTexts;
    }
    if (wanted < 0 && !isEnd)
        return failure(QStringLiteral("it says that its extended textual headers end with a mark, and there is none."));
    return {};
}

Result<void> SegyFile::findSamples(const FormatChoice& choice)
{
    Layout& layout = m_layout;
    std::int64_t trailers = 0;
    if (layout.majorRevision == 2) {
        const std::byte* const all = bytesOf(m_binary);
        const auto offset = uint64At(all + (bin::firstTrace - 1 - g_textBytes), layout.order);
        if (offset > static_cast<std::uint64_t>(g_frontBytes) && offset < static_cast<std::uint64_t>(layout.fileBytes))
            layout.firstTrace = static_cast<std::int64_t>(offset);
        const std::int32_t additional = binary(bin::additionalHeaders, 4);
        if (additional < 0 || additional > 1000)
            m_remarks.doubtful(
                QStringLiteral("The file names %1 additional trace headers; none is read.").arg(additional));
        else
            layout.headerBytes *= 1 + additional;
        trailers = std::clamp<std::int64_t>(binary(bin::trailers, 4), 0, g_mostTexts) * g_textBytes;
    }
    const std::int64_t room = layout.fileBytes - layout.firstTrace - trailers;
    std::array<std::byte, g_headerBytes> first{};
    if (room < g_headerBytes)
        return failure(QStringLiteral("it ends before its first trace."));
    if (Result<void> read = readAt(layout.firstTrace, first.data(), g_headerBytes); !read)
        return read;

    const auto width = static_cast<std::int64_t>(bytesPerSample(layout.format));
    const auto bytesOfTrace = [&](std::int64_t samples) { return layout.headerBytes + samples * width; };
    const std::int64_t extended = layout.majorRevision == 2 ? binary(bin::longSamples, 4) : 0;
    const std::int64_t inFile = extended > 0 ? extended : static_cast<std::uint16_t>(binary(bin::samples, 2));
    const std::int64_t inTrace = uint16At(first.data() + at::samples.byte - 1, layout.order);
    layout.samples = choice.samples.value_or(inFile > 0 ? inFile : inTrace);
    if (!choice.samples && inFile > 0 && inTrace > 0 && inFile != inTrace && extended <= 0) {
        // The length that the file's size is made of.
        const bool fits = room % bytesOfTrace(inFile) == 0;
        if (!fits && room % bytesOfTrace(inTrace) == 0)
            layout.samples = inTrace;
        m_remarks.assumed(
            QStringLiteral("Traces have %1 samples; the binary header says %2, the first trace %3, and the size "
                           "of the file %4.")
                .arg(layout.samples)
                .arg(inFile)
                .arg(inTrace)
                .arg(fits || layout.samples == inTrace ? QStringLiteral("goes with it")
                                                       : QStringLiteral("goes with neither")));
    } else if (!choice.samples && inFile == 0 && inTrace > 0) {
        m_remarks.assumed(
            QStringLiteral("Traces have %1 samples, as the first one says; the binary header says nothing.")
                .arg(inTrace));
    }
    if (layout.samples < 1)
        return failure(
            QStringLiteral("neither the binary header nor the first trace says how many samples a trace has."));
    if (layout.samples > g_mostSamples)
        return failure(QStringLiteral("its traces would have %1 samples each.").arg(layout.samples));
    layout.traceBytes = bytesOfTrace(layout.samples);
    layout.traces = room / layout.traceBytes;
    layout.restBytes = room % layout.traceBytes;
    if (layout.traces == 0)
        return failure(QStringLiteral("it ends within its first trace, which takes %1 bytes; there are %2.")
                           .arg(layout.traceBytes)
                           .arg(room));
    if (layout.restBytes > 0)
        m_remarks.doubtful(
            QStringLiteral("The file ends within a trace: %1 bytes behind the last whole one are not read.")
                .arg(layout.restBytes));
    findInterval(first.data());
    return {};
}

void SegyFile::findInterval(const std::byte* firstTrace)
{
    if (m_layout.majorRevision == 2) {
        const auto exact =
            std::bit_cast<double>(uint64At(bytesOf(m_binary) + (bin::exactInterval - 1 - g_textBytes), m_layout.order));
        if (std::isfinite(exact) && exact > 0 && exact < 1e9) {
            m_interval = exact;
            return;
        }
    }
    const std::int32_t inFile = binary(bin::interval, 2);
    const std::int32_t inTrace = valueAt(firstTrace, at::interval, m_layout.order);
    m_interval = inFile != 0 ? inFile : inTrace;
    if (inFile <= 0 && inTrace > 0) {
        m_interval = inTrace;
        m_remarks.assumed(
            QStringLiteral("The sample interval is %1, as the first trace says; the binary header says %2.")
                .arg(inTrace)
                .arg(inFile));
    } else if (inTrace > 0 && inFile > 0 && inTrace != inFile) {
        m_remarks.assumed(
            QStringLiteral("The sample interval is %1, as the binary header says; the first trace says %2.")
                .arg(inFile)
                .arg(inTrace));
    }
}

Result<void> SegyFile::readTraces(std::int64_t first, std::int64_t count, std::byte* target) const
{
    return readAt(m_layout.firstTrace + first * m_layout.traceBytes, target, count * m_layout.traceBytes);
}

Result<void> SegyFile::readHeader(std::int64_t trace, std::byte* target, std::size_t bytes) const
{
    return readAt(m_layout.firstTrace + trace * m_layout.traceBytes, target, static_cast<std::int64_t>(bytes));
}

void SegyFile::announce(std::int64_t first, std::int64_t count) const
{
    posix_fadvise(m_descriptor, m_layout.firstTrace + first * m_layout.traceBytes, count * m_layout.traceBytes,
                  POSIX_FADV_WILLNEED);
}

Result<void> SegyFile::checkUnchanged() const
{
    struct stat state
    {};
    if (fstat(m_descriptor, &state) != 0)
        return failure(QStringLiteral("%1.").arg(qt_error_string(errno)));
    if (state.st_size != m_layout.fileBytes || modifiedAt(state) != m_modified)
        return failure(QStringLiteral("somebody wrote to it while it was read."));
    return {};
}

} // namespace hv::segy
