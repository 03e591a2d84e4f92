#include "host/widgets/HVJobPanel.h"

#include "host/icons/HVIconStore.h"

#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

/// More than anybody reads; what waits further back is counted.
constexpr std::size_t g_mostRows = 50;
/// Fine enough for a bar across a large screen.
constexpr int g_resolution = 1000;
constexpr QSize g_preferredSize(420, 160);

QString note(const hv::JobStatus& job)
{
    if (job.cancelling)
        return HVJobPanel::tr("stopping ...");
    if (job.state == hv::JobState::Waiting)
        return HVJobPanel::tr("waiting");
    return job.secondsLeft ? HVTimeLeft::text(*job.secondsLeft) : QString();
}

} // namespace

class HVJobPanel::Row : public QWidget
{
public:
    explicit Row(HVJobPanel& panel) : m_name(new QLabel), m_note(new QLabel), m_bar(new QProgressBar)
    {
        m_name->setTextFormat(Qt::PlainText);
        m_name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        m_note->setForegroundRole(QPalette::PlaceholderText);
        m_bar->setTextVisible(false);
        m_bar->setMaximumHeight(fontMetrics().height() * 2 / 3);
        m_cancel = new QToolButton;
        m_cancel->setIcon(HVIconStore::icon(QStringLiteral("close_16")));
        m_cancel->setAutoRaise(true);
        m_cancel->setToolTip(HVJobPanel::tr("Cancel this job"));
        QObject::connect(m_cancel, &QToolButton::clicked, &panel, [this, &panel] {
            if (panel.m_jobs)
                panel.m_jobs->cancel(m_job);
        });
        auto* layout = new QGridLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setVerticalSpacing(2);
        layout->setColumnStretch(0, 1);
        layout->addWidget(m_name, 0, 0);
        layout->addWidget(m_note, 0, 1);
        layout->addWidget(m_bar, 1, 0, 1, 2);
        layout->addWidget(m_cancel, 0, 2, 2, 1);
    }

    void fill(const hv::JobStatus& job)
    {
        m_job = job.id;
        m_text = job.text.isEmpty() ? job.name.simplified()
                                    : HVJobPanel::tr("%1: %2").arg(job.name.simplified(), job.text.simplified());
        elide();
        m_name->setToolTip(m_text.toHtmlEscaped());
        m_note->setText(note(job));
        // A range of nothing makes the bar a moving one, which one that waits is not.
        const bool moving = !job.fraction && job.state == hv::JobState::Running;
        m_bar->setRange(0, moving ? 0 : g_resolution);
        m_bar->setValue(static_cast<int>(job.fraction.value_or(0) * g_resolution));
        m_bar->setAccessibleName(m_text);
        m_cancel->setAccessibleName(HVJobPanel::tr("Cancel %1").arg(job.name.simplified()));
        m_cancel->setEnabled(!job.cancelling);
    }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QWidget::resizeEvent(event);
        elide();
    }

private:
    void elide() { m_name->setText(fontMetrics().elidedText(m_text, Qt::ElideRight, m_name->width())); }

    hv::JobId m_job = 0;
    QString m_text;
    QLabel* m_name;
    QLabel* m_note;
    QProgressBar* m_bar;
    QToolButton* m_cancel;
};

HVJobPanel::HVJobPanel(hv::JobManager* jobs, QWidget* parent)
    : QWidget(parent), m_jobs(jobs), m_pages(new QStackedWidget), m_none(new QLabel(tr("No jobs are running"))),
      m_area(new QScrollArea), m_layout(new QVBoxLayout), m_more(new QLabel), m_cancelAll(new QPushButton)
{
    m_none->setAlignment(Qt::AlignCenter);
    m_none->setForegroundRole(QPalette::PlaceholderText);
    m_pages->addWidget(m_none);

    auto* list = new QWidget;
    auto* layout = new QVBoxLayout(list);
    layout->addLayout(m_layout);
    m_more->setForegroundRole(QPalette::PlaceholderText);
    layout->addWidget(m_more);
    m_cancelAll->setText(tr("Cancel All"));
    layout->addWidget(m_cancelAll, 0, Qt::AlignRight);
    layout->addStretch();
    m_area->setWidget(list);
    m_area->setWidgetResizable(true);
    m_area->setFrameShape(QFrame::NoFrame);
    m_pages->addWidget(m_area);

    auto* pages = new QVBoxLayout(this);
    pages->setContentsMargins(0, 0, 0, 0);
    pages->addWidget(m_pages);

    if (!jobs)
        return;
    connect(m_cancelAll, &QPushButton::clicked, jobs, &hv::JobManager::cancelAll);
    connect(jobs, &hv::JobManager::changed, this, [this] {
        if (isVisible())
            update();
    });
}

QSize HVJobPanel::sizeHint() const
{
    return g_preferredSize;
}

void HVJobPanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    update();
}

void HVJobPanel::update()
{
    const std::vector<hv::JobStatus> jobs = m_jobs ? m_jobs->jobs() : std::vector<hv::JobStatus>();
    const std::size_t shown = std::min(jobs.size(), g_mostRows);
    for (std::size_t i = 0; i < std::max(shown, m_rows.size()); ++i) {
        row(i)->setVisible(i < shown);
        if (i < shown)
            row(i)->fill(jobs[i]);
    }
    m_more->setVisible(jobs.size() > shown);
    m_more->setText(tr("and %1 more").arg(jobs.size() - shown));
    m_cancelAll->setVisible(jobs.size() > 1);
    m_cancelAll->setEnabled(!std::all_of(jobs.begin(), jobs.end(), [](const auto& job) { return job.cancelling; }));
    m_pages->setCurrentWidget(jobs.empty() ? static_cast<QWidget*>(m_none) : m_area);
}

HVJobPanel::Row* HVJobPanel::row(std::size_t number)
{
    while (m_rows.size() <= number) {
        m_rows.push_back(new Row(*this));
        m_layout->addWidget(m_rows.back());
    }
    return m_rows[number];
}
