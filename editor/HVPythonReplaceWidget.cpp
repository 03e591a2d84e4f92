#include "editor/HVPythonReplaceWidget.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

HVPythonReplaceWidget::HVPythonReplaceWidget(QWidget* parent) : QFrame(parent, Qt::SubWindow), m_line(new QLineEdit)
{
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setCursor(Qt::ArrowCursor);
    m_line->setPlaceholderText(tr("Replace with"));
    auto* row = new QHBoxLayout(this);
    row->setMargin(6);
    row->addWidget(m_line, 1);
    const auto add = [&](const QString& text, const QString& tip, auto signal) {
        auto* button = new QPushButton(text);
        button->setToolTip(tip);
        row->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, signal] { Q_EMIT(this->*signal)(m_line->text()); });
    };
    add(tr("Replace"), tr("Replace this match and go to the next (Return)"), &HVPythonReplaceWidget::replaceRequested);
    add(tr("All"), tr("Replace all matches (Alt+Return)"), &HVPythonReplaceWidget::replaceAllRequested);
}

void HVPythonReplaceWidget::activate()
{
    m_line->setFocus(Qt::ShortcutFocusReason);
    m_line->selectAll();
}

void HVPythonReplaceWidget::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        Q_EMIT closeRequested();
    else if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        QFrame::keyPressEvent(event);
    else if (event->modifiers().testFlag(Qt::AltModifier))
        Q_EMIT replaceAllRequested(m_line->text());
    else
        Q_EMIT replaceRequested(m_line->text());
    event->accept();
}
