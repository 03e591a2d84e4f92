#include "host/widgets/HVFindBar.h"

#include "host/icons/HVIconStore.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QToolButton>

namespace {

/// More marks than anyone counts, and still quick to paint.
constexpr int g_mostMarks = 1000;

QToolButton* addButton(QBoxLayout* row, const QString& icon, const QString& tip)
{
    auto* button = new QToolButton;
    button->setIcon(HVIconStore::icon(icon));
    button->setToolTip(tip);
    button->setAutoRaise(true);
    row->addWidget(button);
    return button;
}

} // namespace

HVFindBar::HVFindBar(QPlainTextEdit* view, QWidget* parent)
    : QWidget(parent), m_view(view), m_text(new QLineEdit), m_count(new QLabel)
{
    m_text->setPlaceholderText(tr("Find in messages"));
    m_text->setClearButtonEnabled(true);
    m_text->setMaximumWidth(fontMetrics().averageCharWidth() * 48);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(4, 2, 4, 2);
    row->setSpacing(2);
    row->addWidget(m_text);
    connect(addButton(row, QStringLiteral("find_previous_16"), tr("Previous match (Shift+Return, Shift+F3)")),
            &QToolButton::clicked, this, &HVFindBar::findPrevious);
    connect(addButton(row, QStringLiteral("find_next_16"), tr("Next match (Return, F3)")), &QToolButton::clicked, this,
            &HVFindBar::findNext);
    row->addSpacing(6);
    row->addWidget(m_count);
    row->addStretch();
    connect(addButton(row, QStringLiteral("close_16"), tr("Close the search (Esc)")), &QToolButton::clicked, this,
            &HVFindBar::close);
    connect(m_text, &QLineEdit::textChanged, this, [this] {
        // The match under way grows with the text instead of the next one being taken.
        QTextCursor cursor = m_view->textCursor();
        cursor.setPosition(cursor.selectionStart());
        m_view->setTextCursor(cursor);
        findNext();
    });
    hide();
}

void HVFindBar::open()
{
    const QString selected = m_view->textCursor().selectedText();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator))
        m_text->setText(selected);
    show();
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
    markMatches();
}

void HVFindBar::close()
{
    hide();
    m_view->setExtraSelections({});
    m_view->setFocus(Qt::OtherFocusReason);
}

void HVFindBar::setText(const QString& text)
{
    m_text->setText(text);
}

void HVFindBar::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        close();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F3:
        find(event->modifiers().testFlag(Qt::ShiftModifier) ? QTextDocument::FindBackward : QTextDocument::FindFlags());
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void HVFindBar::find(QTextDocument::FindFlags direction)
{
    const QString text = m_text->text();
    if (!text.isEmpty() && !m_view->find(text, direction)) {
        const QTextCursor before = m_view->textCursor();
        m_view->moveCursor(direction.testFlag(QTextDocument::FindBackward) ? QTextCursor::End : QTextCursor::Start);
        if (!m_view->find(text, direction))
            m_view->setTextCursor(before);
    }
    markMatches();
}

void HVFindBar::markMatches()
{
    const QString text = m_text->text();
    QList<QTextEdit::ExtraSelection> marks;
    int current = 0;
    if (!text.isEmpty()) {
        QTextEdit::ExtraSelection mark;
        QColor background = m_view->palette().color(QPalette::Highlight);
        background.setAlpha(80);
        mark.format.setBackground(background);
        mark.cursor = m_view->document()->find(text);
        while (!mark.cursor.isNull() && marks.size() < g_mostMarks) {
            marks.append(mark);
            if (mark.cursor.selectionStart() == m_view->textCursor().selectionStart())
                current = marks.size();
            mark.cursor = m_view->document()->find(text, mark.cursor);
        }
    }
    m_view->setExtraSelections(marks);
    if (text.isEmpty())
        m_count->clear();
    else if (marks.isEmpty())
        m_count->setText(tr("No matches"));
    else
        m_count->setText(
            tr("%1 of %2%3").arg(current).arg(marks.size()).arg(QLatin1String(marks.size() < g_mostMarks ? "" : "+")));
}
