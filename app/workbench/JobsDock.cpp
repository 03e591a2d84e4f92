#include "app/workbench/JobsDock.h"

#include "host/icons/HVIconStore.h"
#include "host/jobs/JobManager.h"
#include "host/widgets/HVJobPanel.h"

#include <QAction>
#include <QToolButton>

#include <cmath>

namespace workbench {

namespace {

constexpr int g_longestName = 40; // characters

QString summary(const std::vector<hv::JobStatus>& jobs)
{
    if (jobs.size() > 1)
        return JobsDock::tr("%1 jobs").arg(jobs.size());
    const hv::JobStatus& job = jobs.front();
    QString name = job.name.simplified();
    if (name.size() > g_longestName)
        name = name.left(g_longestName - 3) + QStringLiteral("...");
    return job.fraction ? JobsDock::tr("%1 %2 %").arg(name).arg(std::floor(*job.fraction * 100)) : name;
}

} // namespace

JobsDock::JobsDock(hv::JobManager& jobs, QWidget* parent) : QDockWidget(tr("Jobs"), parent), m_jobs(jobs)
{
    setObjectName(QStringLiteral("jobsDock"));
    connect(&jobs, &hv::JobManager::changed, this, &JobsDock::showState);
}

void JobsDock::showEvent(QShowEvent* event)
{
    if (!widget())
        setWidget(new HVJobPanel(&m_jobs));
    QDockWidget::showEvent(event);
}

void JobsDock::showState()
{
    if (!m_button) {
        m_button = new QToolButton;
        m_button->setAutoRaise(true);
        m_button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        m_button->setIcon(HVIconStore::icon(QStringLiteral("list_24")));
        m_button->setToolTip(tr("Show the jobs"));
        connect(m_button, &QToolButton::clicked, this, [this] {
            show();
            raise();
        });
        Q_EMIT buttonMade(m_button);
    }
    const std::vector<hv::JobStatus> jobs = m_jobs.jobs();
    m_button->setVisible(!jobs.empty());
    if (!jobs.empty())
        m_button->setText(summary(jobs).replace(QLatin1Char('&'), QLatin1String("&&")));
}

} // namespace workbench
