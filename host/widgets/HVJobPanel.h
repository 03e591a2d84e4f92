#pragma once

#include "host/jobs/JobManager.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QScrollArea;
class QStackedWidget;
class QVBoxLayout;

/// The jobs of the application: for each of them a row with its progress and a button that cancels it. Made for a dock
/// widget; looks at the jobs only while it is on the screen. GUI thread only.
class HVJobPanel : public QWidget
{
    Q_OBJECT

public:
    /// `jobs` is not owned; without it the panel shows that there are none.
    explicit HVJobPanel(hv::JobManager* jobs, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    class Row;

    void update();
    Row* row(std::size_t number);

    QPointer<hv::JobManager> m_jobs;
    QStackedWidget* m_pages;
    QLabel* m_none;
    QScrollArea* m_area;
    QVBoxLayout* m_layout;
    std::vector<Row*> m_rows; // kept for later jobs; the first of them are shown
    QLabel* m_more;
    QPushButton* m_cancelAll;
};
