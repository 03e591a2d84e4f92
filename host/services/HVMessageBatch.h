#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Messages in the order of sending, held compactly: all text in one buffer, neighbours of one level joined in a run.
/// The buffers keep their size between uses, so that adding a message allocates nothing in the long run.
///
/// Texts of levels 1 to 4 are whole messages and end their line here; levels 5 and 6 stay as they came. Lines are
/// counted by their ends. Not thread-safe.
class HVMessageBatch
{
public:
    struct Piece
    {
        int level = 0;
        /// Valid until the batch is changed.
        std::string_view text;
    };

    static bool isStream(int level) { return level >= 5; }

    void append(int level, std::string_view text);
    void append(const HVMessageBatch& newer);

    bool isEmpty() const { return m_begin == m_bytes.size(); }
    std::size_t lineCount() const { return m_lines; }
    std::size_t byteCount() const { return m_bytes.size() - m_begin; }

    /// Drops the oldest text until no more than `lines` complete lines and `bytes` bytes are left.
    void keepNewest(std::size_t lines, std::size_t bytes);

    /// Removes and returns the oldest text: one level, at most `bytes` (>= 4) bytes, whole lines where possible and
    /// always whole characters.
    Piece takeFront(std::size_t bytes);

    void clear();

private:
    struct Run
    {
        std::size_t bytes;
        std::size_t lines;
        int level;
    };

    void dropFront(std::size_t bytes, std::size_t lines);

    std::string m_bytes;
    std::size_t m_begin = 0; // what lies before has been taken
    std::vector<Run> m_runs;
    std::size_t m_firstRun = 0;
    std::size_t m_lines = 0;
};
