#include "host/services/HVMessageBatch.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

/// A flood's memory is given back, an ordinary script's is kept.
constexpr std::size_t g_keptCapacity = 4u << 20;

std::size_t countLines(std::string_view text)
{
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

bool continuesCharacter(char byte)
{
    return (static_cast<std::uint8_t>(byte) & 0xC0u) == 0x80u;
}

} // namespace

void HVMessageBatch::append(int level, std::string_view text)
{
    const bool endLine = !isStream(level) && (text.empty() || text.back() != '\n');
    if (text.empty() && !endLine)
        return;
    m_bytes.append(text);
    if (endLine)
        m_bytes.push_back('\n');
    const std::size_t bytes = text.size() + (endLine ? 1 : 0);
    const std::size_t lines = countLines(text) + (endLine ? 1 : 0);
    m_lines += lines;
    if (m_firstRun < m_runs.size() && m_runs.back().level == level) {
        m_runs.back().bytes += bytes;
        m_runs.back().lines += lines;
    } else {
        m_runs.push_back({bytes, lines, level});
    }
}

void HVMessageBatch::append(const HVMessageBatch& newer)
{
    std::size_t begin = newer.m_begin;
    for (std::size_t i = newer.m_firstRun; i < newer.m_runs.size(); ++i) {
        const Run& run = newer.m_runs[i];
        append(run.level, std::string_view(newer.m_bytes).substr(begin, run.bytes));
        begin += run.bytes;
    }
}

void HVMessageBatch::keepNewest(std::size_t lines, std::size_t bytes)
{
    while (m_lines > lines) {
        const Run& run = m_runs[m_firstRun];
        const std::size_t surplus = m_lines - lines;
        if (run.lines < surplus) {
            dropFront(run.bytes, run.lines);
            continue;
        }
        const char* end = m_bytes.data() + m_begin;
        const char* const runEnd = end + run.bytes;
        for (std::size_t i = 0; i < surplus; ++i)
            end = static_cast<const char*>(std::memchr(end, '\n', static_cast<std::size_t>(runEnd - end))) + 1;
        dropFront(static_cast<std::size_t>(end - m_bytes.data()) - m_begin, surplus);
    }
    while (byteCount() > bytes) {
        const std::string_view run(m_bytes.data() + m_begin, m_runs[m_firstRun].bytes);
        std::size_t cut = std::min(run.size(), byteCount() - bytes);
        const std::size_t lineEnd = run.find('\n', cut - 1);
        if (lineEnd != std::string_view::npos)
            cut = lineEnd + 1;
        while (cut < run.size() && continuesCharacter(run[cut]))
            ++cut;
        dropFront(cut, countLines(run.substr(0, cut)));
    }
    // Moving is paid for by the text dropped since the last time.
    if (m_begin > byteCount()) {
        m_bytes.erase(0, m_begin);
        m_begin = 0;
        m_runs.erase(m_runs.begin(), m_runs.begin() + static_cast<std::ptrdiff_t>(m_firstRun));
        m_firstRun = 0;
    }
}

HVMessageBatch::Piece HVMessageBatch::takeFront(std::size_t bytes)
{
    if (isEmpty())
        return {};
    const Run& run = m_runs[m_firstRun];
    std::string_view text(m_bytes.data() + m_begin, run.bytes);
    if (text.size() > bytes) {
        std::size_t cut = text.rfind('\n', bytes - 1) + 1; // npos + 1 is 0
        if (cut == 0) {
            cut = bytes;
            while (cut > 1 && continuesCharacter(text[cut]))
                --cut;
        }
        text = text.substr(0, cut);
    }
    const Piece piece{run.level, text};
    dropFront(text.size(), text.size() == run.bytes ? run.lines : countLines(text));
    return piece;
}

void HVMessageBatch::clear()
{
    m_bytes.clear();
    m_runs.clear();
    if (m_bytes.capacity() > g_keptCapacity)
        m_bytes.shrink_to_fit();
    m_begin = m_firstRun = m_lines = 0;
}

void HVMessageBatch::dropFront(std::size_t bytes, std::size_t lines)
{
    Run& run = m_runs[m_firstRun];
    run.bytes -= bytes;
    run.lines -= lines;
    m_begin += bytes;
    m_lines -= lines;
    if (run.bytes == 0)
        ++m_firstRun;
}
