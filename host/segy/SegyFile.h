#pragma once

#include "host/core/Result.h"
#include "host/segy/Fields.h"
#include "host/segy/Remark.h"
#include "host/segy/TextHeader.h"

#include <memory>
#include <vector>

namespace hv::segy {

/// What the user knows better than the file. What is not set is found out.
struct FormatChoice
{
    std::optional<ByteOrder> order;
    std::optional<SampleFormat> format;
    /// Per trace.
    std::optional<std::int64_t> samples;
    std::optional<TextEncoding> encoding;
};

/// Where things lie in a file whose traces all have the same length.
struct Layout
{
    ByteOrder order = ByteOrder::Big;
    SampleFormat format = SampleFormat::Ibm;
    int majorRevision = 0;
    int minorRevision = 0;
    std::int64_t fileBytes = 0;
    int extendedTexts = 0;
    /// Offset of the first trace.
    std::int64_t firstTrace = 0;
    /// Of one trace: its header with what revision 2 may append to it, and the whole.
    std::int64_t headerBytes = g_headerBytes;
    std::int64_t traceBytes = 0;
    /// Whole traces.
    std::int64_t traces = 0;
    std::int64_t samples = 0;
    /// What lies behind the last whole trace.
    std::int64_t restBytes = 0;
};

/// A SEG-Y file, opened for reading. It is read by its descriptor, in blocks, never through a mapping: a file that
/// somebody cuts off gives an error. Immutable; any thread may read, several at once.
class SegyFile
{
public:
    /// Reads the headers in front of the traces and finds the layout. Fails when the file cannot be SEG-Y or its
    /// samples are of a kind that is not read.
    static Result<std::shared_ptr<const SegyFile>> open(const QString& path, const FormatChoice& choice = {});
    ~SegyFile();
    SegyFile(const SegyFile&) = delete;
    SegyFile& operator=(const SegyFile&) = delete;

    const QString& path() const { return m_path; }
    const Layout& layout() const { return m_layout; }
    /// How the layout was found.
    const Remarks& remarks() const { return m_remarks; }

    /// The textual header and the extended ones, 40 rows each.
    const std::vector<QStringList>& texts() const { return m_texts; }
    TextEncoding encoding() const { return m_encoding; }
    /// The 400 bytes as they stand in the file.
    const QByteArray& binaryHeader() const { return m_binary; }
    std::int32_t binaryValue(const Field& field) const;
    /// Of the binary header or, where that says nothing, of the first trace: as it stands there, in microseconds for a
    /// file in time; 0 when neither says.
    double interval() const { return m_interval; }
    /// From the binary header.
    bool isInFeet() const;

    /// `count` whole traces from `first` on.
    Result<void> readTraces(std::int64_t first, std::int64_t count, std::byte* target) const;
    /// `bytes` bytes of one trace's beginning.
    Result<void> readHeader(std::int64_t trace, std::byte* target, std::size_t bytes = g_headerBytes) const;
    /// Tells the system that these traces are read next.
    void announce(std::int64_t first, std::int64_t count) const;
    /// Nobody wrote to the file since it was opened.
    Result<void> checkUnchanged() const;

private:
    SegyFile() = default;
    Result<void> readAt(std::int64_t offset, void* target, std::int64_t bytes) const;
    Result<void> findLayout(const FormatChoice& choice);
    Result<ByteOrder> findOrder(const FormatChoice& choice);
    Result<void> findFormat(const FormatChoice& choice);
    void findRevision();
    Result<void> readTexts(const FormatChoice& choice);
    Result<void> findSamples(const FormatChoice& choice);
    void findInterval(const std::byte* firstTrace);
    Failure failure(const QString& sentence) const;
    std::int32_t binary(int byte, int size) const;

    QString m_path;
    int m_descriptor = -1;
    std::int64_t m_modified = 0; // in nanoseconds
    QByteArray m_text;
    QByteArray m_binary;
    std::vector<QStringList> m_texts;
    TextEncoding m_encoding = TextEncoding::Ebcdic;
    Layout m_layout;
    double m_interval = 0;
    Remarks m_remarks;
};

} // namespace hv::segy
