#include "app/workbench/EmptyWorkspace.h"

#include "app/workbench/Commands.h"
#include "app/workbench/RecentScripts.h"

#include <QEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QVBoxLayout>

namespace workbench {

namespace {

constexpr int g_recentShown = 5;
const QString g_recentPrefix = QStringLiteral("recent:");

} // namespace

EmptyWorkspace::EmptyWorkspace(QMdiArea* area, const Commands& commands)
    : QWidget(area->viewport()), m_area(area), m_commands(commands), m_text(new QLabel)
{
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Window);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_text, 0, Qt::AlignCenter);
    m_text->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    connect(m_text, &QLabel::linkActivated, this, &EmptyWorkspace::followLink);
    connect(area, &QMdiArea::subWindowActivated, this, [this] { setVisible(m_area->subWindowList().isEmpty()); });
    area->viewport()->installEventFilter(this);
}

bool EmptyWorkspace::eventFilter(QObject* receiver, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        setGeometry(m_area->viewport()->rect());
    return QWidget::eventFilter(receiver, event);
}

void EmptyWorkspace::showEvent(QShowEvent* event)
{
    fill();
    QWidget::showEvent(event);
}

void EmptyWorkspace::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    // Links take their colour when the text is set.
    if (event->type() == QEvent::PaletteChange && isVisible())
        fill();
}

void EmptyWorkspace::fill()
{
    const QString faint = palette().color(QPalette::Disabled, QPalette::WindowText).name();
    const auto row = [&](const QString& link, const QString& text, const QString& note) {
        return QStringLiteral("<tr><td><a href=\"%1\" style=\"text-decoration:none\">%2</a></td>"
                              "<td style=\"padding-left:24px;color:%3\">%4</td></tr>")
            .arg(link.toHtmlEscaped(), text.toHtmlEscaped(), faint, note.toHtmlEscaped());
    };
    QString html = QStringLiteral("<table cellpadding=\"3\"><tr><td colspan=\"2\"><h2>%1</h2></td></tr>")
                       .arg(tr("No script is open"));
    html += row(QStringLiteral("new"), tr("New Script"), m_commands.keyText("script.new"));
    html += row(QStringLiteral("open"), tr("Open Script..."), m_commands.keyText("script.open"));
    const QStringList recent = recentScripts().mid(0, g_recentShown);
    if (!recent.isEmpty())
        html += QStringLiteral("<tr><td colspan=\"2\"><br/><b>%1</b></td></tr>").arg(tr("Recent Scripts"));
    for (const QString& path : recent)
        html += row(g_recentPrefix + path, QFileInfo(path).fileName(), QFileInfo(path).absolutePath());
    m_text->setText(html + QStringLiteral("</table>"));
}

void EmptyWorkspace::followLink(const QString& link)
{
    if (link == QLatin1String("new"))
        Q_EMIT newScriptRequested();
    else if (link == QLatin1String("open"))
        Q_EMIT openScriptRequested();
    else if (link.startsWith(g_recentPrefix))
        Q_EMIT recentScriptRequested(link.mid(g_recentPrefix.size()));
}

} // namespace workbench
