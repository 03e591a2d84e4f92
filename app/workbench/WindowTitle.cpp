#include "app/workbench/WindowTitle.h"

#include <QWidget>

namespace workbench {

WindowTitle::WindowTitle(QWidget& window) : m_window(window)
{
    show();
}

void WindowTitle::setProject(const QString& name)
{
    m_project = name;
    show();
}

void WindowTitle::setState(const QString& word)
{
    m_state = word;
    show();
}

void WindowTitle::show()
{
    QString title = QStringLiteral("Strativo");
    if (!m_project.isEmpty())
        title = QStringLiteral("%1 - %2").arg(m_project, title);
    if (!m_state.isEmpty())
        title = QStringLiteral("%1 (%2)").arg(title, m_state);
    m_window.setWindowTitle(title);
}

} // namespace workbench
