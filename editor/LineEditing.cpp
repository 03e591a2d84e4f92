#include "editor/LineEditing.h"

#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTextBlock>

#include <algorithm>
#include <limits>

namespace editor {

namespace {

/// A file shows its habit early; longer ones are not read to the end at each key.
constexpr int g_linesLookedAt = 2000;
constexpr int g_spaces = 4;

struct Lines
{
    QTextBlock first, last;
};

Lines touchedLines(const QTextCursor& cursor)
{
    const QTextDocument* document = cursor.document();
    Lines lines{document->findBlock(cursor.selectionStart()), document->findBlock(cursor.selectionEnd())};
    if (lines.last != lines.first && cursor.selectionEnd() == lines.last.position())
        lines.last = lines.last.previous();
    return lines;
}

int indentation(const QString& line)
{
    const auto end = std::find_if(line.begin(), line.end(), [](QChar c) { return c != ' ' && c != '\t'; });
    return static_cast<int>(end - line.begin());
}

bool isBlank(const QString& line)
{
    return indentation(line) == line.size();
}

/// Calls `edit` with a cursor at the start of each line and its text, last line first, as one step for Undo.
template <typename Edit>
void editLines(QPlainTextEdit& view, const Lines& lines, Edit edit)
{
    QTextCursor cursor(view.document());
    cursor.beginEditBlock();
    for (QTextBlock block = lines.last; block.isValid(); block = block.previous()) {
        cursor.setPosition(block.position());
        edit(cursor, block.text());
        if (block == lines.first)
            break;
    }
    cursor.endEditBlock();
}

QString unitOrSpaces(const QTextDocument& document)
{
    const QString unit = indentationUnit(document);
    return unit.isEmpty() ? QString(g_spaces, QLatin1Char(' ')) : unit;
}

void removeAt(QTextCursor& cursor, int column, int length)
{
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::MoveAnchor, column);
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor, length);
    cursor.removeSelectedText();
}

} // namespace

QString indentationUnit(const QTextDocument& document)
{
    int looked = 0;
    for (QTextBlock block = document.begin(); block.isValid() && looked < g_linesLookedAt;
         block = block.next(), ++looked) {
        const QString line = block.text();
        const int depth = indentation(line);
        if (depth == 0 || depth == line.size())
            continue;
        if (line.at(0) == QLatin1Char('\t'))
            return QStringLiteral("\t");
        // One space is the continuation of something, not a level.
        if (depth > 1)
            return QString(depth % 4 == 0   ? g_spaces
                           : depth % 3 == 0 ? 3
                           : depth % 2 == 0 ? 2
                                            : g_spaces,
                           QLatin1Char(' '));
    }
    return {};
}

QString indentationAfter(const QTextCursor& cursor)
{
    static const QRegularExpression opens(QStringLiteral(":[ \\t]*(#.*)?$"));
    static const QRegularExpression leaves(QStringLiteral("^[ \\t]*(return|pass|break|continue|raise)\\b"));
    const QString line = cursor.block().text().left(cursor.positionInBlock());
    QString indent = line.left(indentation(line));
    const QString unit = unitOrSpaces(*cursor.document());
    const QString statement = line.mid(indent.size());
    if (opens.match(line).hasMatch() && !statement.startsWith(QLatin1Char('#')))
        return indent + unit;
    if (leaves.match(line).hasMatch() && indent.endsWith(unit))
        indent.chop(unit.size());
    return indent;
}

bool selectsSeveralLines(const QTextCursor& cursor)
{
    const QTextDocument* document = cursor.document();
    return document->findBlock(cursor.selectionStart()) != document->findBlock(cursor.selectionEnd());
}

void indentLines(QPlainTextEdit& view)
{
    const QString unit = unitOrSpaces(*view.document());
    editLines(view, touchedLines(view.textCursor()), [&](QTextCursor& cursor, const QString& line) {
        if (!isBlank(line))
            cursor.insertText(unit);
    });
}

void unindentLines(QPlainTextEdit& view)
{
    const int width = std::max(1, unitOrSpaces(*view.document()).size());
    editLines(view, touchedLines(view.textCursor()), [&](QTextCursor& cursor, const QString& line) {
        const bool tab = line.startsWith(QLatin1Char('\t'));
        removeAt(cursor, 0, tab ? 1 : std::min(indentation(line), width == 1 ? g_spaces : width));
    });
}

void toggleComment(QPlainTextEdit& view)
{
    const Lines lines = touchedLines(view.textCursor());
    bool allCommented = true;
    int column = std::numeric_limits<int>::max();
    const bool single = lines.first == lines.last;
    for (QTextBlock block = lines.first; block.isValid(); block = block.next()) {
        const QString line = block.text();
        if (single || !isBlank(line)) {
            allCommented = allCommented && line.mid(indentation(line)).startsWith(QLatin1Char('#'));
            column = std::min(column, indentation(line));
        }
        if (block == lines.last)
            break;
    }
    editLines(view, lines, [&](QTextCursor& cursor, const QString& line) {
        if (isBlank(line) && !single)
            return;
        if (allCommented) {
            const int hash = indentation(line);
            removeAt(cursor, hash, line.mid(hash).startsWith(QLatin1String("# ")) ? 2 : 1);
        } else {
            cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::MoveAnchor, column);
            cursor.insertText(QStringLiteral("# "));
        }
    });
}

void moveLines(QPlainTextEdit& view, int direction)
{
    const QTextCursor selection = view.textCursor();
    const Lines lines = touchedLines(selection);
    const QTextBlock other = direction < 0 ? lines.first.previous() : lines.last.next();
    if (!other.isValid())
        return;
    // The neighbour goes to the other side of the lines, so what is selected stays selected.
    const QString text = other.text();
    const int first = lines.first.position();
    const int end = lines.last.position() + lines.last.length() - 1;
    const int moved = direction * (text.size() + 1);
    const int anchor = selection.anchor() + moved;
    const int position = selection.position() + moved;
    QTextCursor cursor(view.document());
    cursor.beginEditBlock();
    cursor.setPosition(direction < 0 ? other.position() : end);
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor, text.size() + 1);
    cursor.removeSelectedText();
    cursor.setPosition(direction < 0 ? end + moved : first);
    cursor.insertText(direction < 0 ? QLatin1Char('\n') + text : text + QLatin1Char('\n'));
    cursor.setPosition(anchor);
    cursor.setPosition(position, QTextCursor::KeepAnchor);
    cursor.endEditBlock();
    view.setTextCursor(cursor);
}

void duplicate(QPlainTextEdit& view)
{
    QTextCursor cursor = view.textCursor();
    if (cursor.hasSelection()) {
        QTextCursor copy(view.document());
        copy.setPosition(cursor.selectionEnd());
        copy.insertText(cursor.selectedText());
        return;
    }
    const int column = cursor.positionInBlock();
    const QString line = cursor.block().text();
    cursor.movePosition(QTextCursor::EndOfBlock);
    cursor.insertText(QLatin1Char('\n') + line);
    cursor.setPosition(cursor.block().position() + column);
    view.setTextCursor(cursor);
}

} // namespace editor
