#include "editor/Brackets.h"

#include "editor/PythonScanner.h"

#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>

namespace editor {

namespace {

constexpr int g_farthest = 2000;      // lines
constexpr int g_longestLine = 50'000; // characters

const QString g_opening = QStringLiteral("([{");
const QString g_closing = QStringLiteral(")]}");

/// A line of which only the code counts.
class CodeLine
{
public:
    explicit CodeLine(const QTextBlock& block) : m_text(block.text()) { scanPythonLine(m_text, m_spans); }

    const QString& text() const { return m_text; }
    /// Positions may come in any order.
    bool isCode(int position) const
    {
        const auto after = std::upper_bound(m_spans.begin(), m_spans.end(), position,
                                            [](int p, const PythonSpan& span) { return p < span.start; });
        if (after == m_spans.begin())
            return true;
        const PythonSpan& span = *std::prev(after);
        return position >= span.start + span.length || span.token < PythonToken::String;
    }

private:
    QString m_text;
    std::vector<PythonSpan> m_spans;
};

/// The position of the bracket that balances the one at `column`, nothing when it is too far away.
std::optional<int> partnerOf(QTextBlock block, int column, const CodeLine& start)
{
    const bool forward = g_opening.contains(start.text().at(column));
    const QString& deeper = forward ? g_opening : g_closing;
    const QString& higher = forward ? g_closing : g_opening;
    const int kind = deeper.indexOf(start.text().at(column));
    const int step = forward ? 1 : -1;
    int depth = 0;
    CodeLine line = start;
    int from = column;
    for (int looked = 0; looked < g_farthest; ++looked) {
        for (int i = from; i >= 0 && i < line.text().size(); i += step) {
            const QChar c = line.text().at(i);
            const int closes = higher.indexOf(c);
            if ((closes < 0 && !deeper.contains(c)) || !line.isCode(i))
                continue;
            depth += closes < 0 ? 1 : -1;
            if (depth == 0)
                return closes == kind ? block.position() + i : -1;
        }
        block = forward ? block.next() : block.previous();
        if (!block.isValid())
            return -1;
        if (block.length() > g_longestLine)
            return std::nullopt;
        line = CodeLine(block);
        from = forward ? 0 : line.text().size() - 1;
    }
    return std::nullopt;
}

} // namespace

std::optional<BracketPair> bracketsAt(const QTextCursor& cursor)
{
    const QTextBlock block = cursor.block();
    if (block.length() > g_longestLine)
        return std::nullopt;
    const CodeLine line(block);
    for (const int column : {cursor.positionInBlock(), cursor.positionInBlock() - 1}) {
        if (column < 0 || column >= line.text().size() || !line.isCode(column) ||
            !(g_opening + g_closing).contains(line.text().at(column)))
            continue;
        const std::optional<int> partner = partnerOf(block, column, line);
        if (!partner)
            return std::nullopt;
        return BracketPair{block.position() + column, *partner};
    }
    return std::nullopt;
}

} // namespace editor
