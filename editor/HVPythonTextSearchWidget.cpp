#include "editor/HVPythonTextSearchWidget.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

HVPythonTextSearchWidget::HVPythonTextSearchWidget(QWidget* parent)
    : QFrame(parent, Qt::SubWindow), m_line(new QLineEdit), m_count(new QLabel)
{
    setMinimumWidth(150);
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setCursor(Qt::ArrowCursor);
    m_line->setPlaceholderText(QStringLiteral("Search"));
    m_count->hide();
    auto* row = new QHBoxLayout(this);
    row->setMargin(6);
    row->addWidget(m_line, 1);
    row->addWidget(m_count);
    connect(m_line, &QLineEdit::textChanged, this, &HVPythonTextSearchWidget::startSearch);
}

QString HVPythonTextSearchWidget::text() const
{
    return m_line->text();
}

void HVPythonTextSearchWidget::setText(const QString& text)
{
    m_line->setText(text);
}

void HVPythonTextSearchWidget::activate()
{
    m_line->setFocus(Qt::ShortcutFocusReason);
    m_line->selectAll();
}

void HVPythonTextSearchWidget::showCount(int current, int count)
{
    m_count->setVisible(!m_line->text().isEmpty());
    m_count->setText(count == 0 ? tr("no match") : tr("%1 of %2").arg(current).arg(count));
    layout()->activate();
    adjustSize();
}

void HVPythonTextSearchWidget::keyPressEvent(QKeyEvent* event)
{
    const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    if (event->key() == Qt::Key_Escape)
        Q_EMIT closeRequested();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_F3)
        shift ? Q_EMIT previousRequested() : Q_EMIT nextRequested();
    else if (control && (event->key() == Qt::Key_H || event->key() == Qt::Key_R))
        Q_EMIT replaceRequested();
    else
        QFrame::keyPressEvent(event);
    event->accept();
}
