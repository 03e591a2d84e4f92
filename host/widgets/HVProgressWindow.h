#pragma once

#include "host/services/HVProgressBarMgr.h"

#include <QDialog>

class QGridLayout;
class QLabel;
class QProgressBar;
class QPushButton;

/// The window of the progress bars: one row per bar, nested ones indented, and a Cancel button for all of them. Escape
/// and closing the window cancel too; the window goes only when its owner takes it away.
class HVProgressWindow : public QDialog
{
    Q_OBJECT

public:
    explicit HVProgressWindow(QWidget* parent = nullptr);

    void setBars(const std::vector<HVProgressBarState>& bars);

    void reject() override;

Q_SIGNALS:
    void cancelRequested();

private:
    struct Row
    {
        QLabel* name;
        QLabel* timeLeft;
        QProgressBar* bar;
        QGridLayout* layout;
    };

    Row& row(std::size_t number);
    void fill(Row& row, const HVProgressBarState& state);

    std::vector<Row> m_rows;
    QGridLayout* m_layout;
    QLabel* m_more;
    QPushButton* m_cancel;
};
