#include "editor/NoticeBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace editor {

NoticeBar::NoticeBar(QWidget* parent) : QFrame(parent), m_row(new QHBoxLayout(this)), m_label(new QLabel)
{
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setCursor(Qt::ArrowCursor);
    m_row->setContentsMargins(8, 4, 8, 4);
    m_label->setWordWrap(true);
    m_row->addWidget(m_label, 1);
    hide();
}

QString NoticeBar::sentence() const
{
    return isHidden() ? QString() : m_label->text();
}

void NoticeBar::show(const QString& sentence, const std::vector<Answer>& answers)
{
    for (QPushButton* button : findChildren<QPushButton*>()) {
        button->hide();
        button->deleteLater(); // it may be the one that was pressed
    }
    m_label->setText(sentence);
    for (const auto& [text, work] : answers)
        addButton(text, work);
    addButton(answers.empty() ? tr("Close") : tr("Ignore"), {});
    QFrame::show();
    raise();
}

void NoticeBar::addButton(const QString& text, const std::function<void()>& work)
{
    auto* button = new QPushButton(text);
    button->setFocusPolicy(Qt::TabFocus);
    m_row->addWidget(button);
    connect(button, &QPushButton::clicked, this, [this, work] {
        hide();
        if (work)
            work();
    });
}

} // namespace editor
