#include "host/widgets/HVMessageView.h"

#include <QFontDatabase>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>

#include <vector>

namespace {

/// Laying out a line costs time in proportion to its length whenever it comes into view.
constexpr int g_longestLine = 4000;

/// QTextBlock::userState() of a block that continues the line before it.
constexpr int g_continuation = 1;

constexpr int g_levelProperty = QTextFormat::UserProperty + 1;

QChar displayed(QChar c)
{
    if (c == QLatin1Char('\t'))
        return c;
    if (c < QLatin1Char(' '))
        return QChar(0x2400 + c.unicode());
    // Characters that would end a block behind the line count's back.
    if (c == QChar::ParagraphSeparator || c == QChar::LineSeparator || (c.unicode() >= 0xfdd0 && c.unicode() <= 0xfdef))
        return QChar::ReplacementCharacter;
    return c == QChar(0x7f) ? QChar(0x2421) : c;
}

} // namespace

HVMessageView::HVMessageView(int lineLimit, QWidget* parent) : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setLineWrapMode(NoWrap);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    // One more for the empty line after the last line end.
    setMaximumBlockCount(lineLimit + 1);
    setFrameShape(NoFrame);
}

void HVMessageView::append(const HVMessageBatch::Piece& piece)
{
    const QTextCharFormat format = formatOf(piece.level);
    const bool wholeMessage = !HVMessageBatch::isStream(piece.level);
    if (wholeMessage && piece.level != m_lastLevel && document()->lastBlock().length() > 1)
        appendText(QStringLiteral("\n"), formatOf(m_lastLevel));
    if (wholeMessage)
        m_returned = false;
    m_lastLevel = piece.level;
    appendText(QString::fromUtf8(piece.text.data(), static_cast<int>(piece.text.size())), format);
}

void HVMessageView::appendText(const QString& text, const QTextCharFormat& format)
{
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);

    QString shown;
    shown.reserve(text.size());
    std::vector<int> continuations; // which of the line ends in `shown` only break a long line
    int lineEnds = 0;
    int lineStart = 0;
    int column = document()->lastBlock().length() - 1;
    const auto endLine = [&] {
        shown += QLatin1Char('\n');
        lineStart = shown.size();
        ++lineEnds;
        column = 0;
    };
    for (const QChar c : text) {
        if (c == QLatin1Char('\r')) {
            m_returned = true;
            continue;
        }
        if (c == QLatin1Char('\n')) {
            m_returned = false;
            endLine();
            continue;
        }
        if (m_returned) {
            m_returned = false;
            shown.truncate(lineStart);
            column = 0;
            if (lineEnds == 0) {
                cursor.movePosition(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
                cursor.removeSelectedText();
            }
        }
        if (column >= g_longestLine && !c.isLowSurrogate()) {
            endLine();
            continuations.push_back(lineEnds);
        }
        shown += displayed(c);
        ++column;
    }
    if (shown.isEmpty())
        return;
    cursor.insertText(shown, format);
    for (const int nth : continuations) {
        // Counted from the end: the start may have been cut to the line limit.
        const int number = document()->blockCount() - 1 - (lineEnds - nth);
        if (number >= 0)
            document()->findBlockByNumber(number).setUserState(g_continuation);
    }
}

bool HVMessageView::isAtEnd() const
{
    return verticalScrollBar()->value() >= verticalScrollBar()->maximum();
}

void HVMessageView::goToEnd()
{
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

QTextCursor HVMessageView::topLine() const
{
    return QTextCursor(firstVisibleBlock());
}

void HVMessageView::setTopLine(const QTextCursor& line)
{
    verticalScrollBar()->setValue(line.block().firstLineNumber());
}

QString HVMessageView::copiedText() const
{
    const QTextCursor cursor = textCursor();
    return cursor.hasSelection() ? textBetween(cursor.selectionStart(), cursor.selectionEnd())
                                 : textBetween(0, document()->characterCount() - 1);
}

QMimeData* HVMessageView::createMimeDataFromSelection() const
{
    auto* copied = new QMimeData;
    copied->setText(copiedText());
    return copied;
}

QString HVMessageView::textBetween(int start, int end) const
{
    QString text;
    for (QTextBlock block = document()->findBlock(start); block.isValid() && block.position() <= end;
         block = block.next()) {
        const int from = std::max(0, start - block.position());
        if (block.position() > start && block.userState() != g_continuation)
            text += QLatin1Char('\n');
        text += block.text().mid(from, end - block.position() - from);
    }
    return text;
}

QColor HVMessageView::levelColour(int level, bool darkBase)
{
    switch (level) {
    case 1:
        return darkBase ? 0xff8a80 : 0xb3261e;
    case 2:
        return darkBase ? 0xe8b341 : 0x8a5300;
    case 3:
        return darkBase ? 0x82b4ff : 0x0b57a4;
    case 4:
        return darkBase ? 0x7ddc8c : 0x1b6e2f;
    case 6:
        return darkBase ? 0xffab91 : 0x9c3a00;
    default:
        return {};
    }
}

QTextCharFormat HVMessageView::formatOf(int level) const
{
    QTextCharFormat format;
    format.setProperty(g_levelProperty, level);
    const QColor colour = levelColour(level, palette().color(QPalette::Base).lightness() < 128);
    if (colour.isValid())
        format.setForeground(colour);
    return format;
}

void HVMessageView::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        recolour();
}

void HVMessageView::resizeEvent(QResizeEvent* event)
{
    const bool following = isAtEnd();
    QPlainTextEdit::resizeEvent(event);
    if (following)
        goToEnd();
}

void HVMessageView::recolour()
{
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const QTextCharFormat format = formatOf(fragment.charFormat().intProperty(g_levelProperty));
            if (fragment.charFormat().foreground() == format.foreground())
                continue;
            cursor.setPosition(fragment.position());
            cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            cursor.setCharFormat(format);
        }
    }
    cursor.endEditBlock();
}
