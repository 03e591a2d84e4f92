#pragma once

#include "host/exchange/TraceHeaderModel.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;

namespace hv {

/// How well the coordinates of a file go with a regular survey, in sentences.
QString fitInWords(const segy::Scan& scan);

/// Where in the trace headers the survey stands: what was found and why, to be changed by typing. An empty field leaves
/// it to the program.
class SegyPositionsPage : public QWidget
{
    Q_OBJECT

public:
    explicit SegyPositionsPage(QWidget* parent = nullptr);

    void setPreview(const SegyPreview& preview);
    void setScan(const segy::Scan& scan);
    void choose(segy::ScanChoice& choice) const;
    /// What cannot be understood; empty when all can.
    QString problem() const;
    /// `role` counts in positionRoles().
    void setPosition(int role, segy::Position position);
    QLineEdit* field(int role) const { return m_rows[static_cast<std::size_t>(role)].field; }

Q_SIGNALS:
    void edited();

private:
    struct Row
    {
        QLineEdit* field = nullptr;
        QLabel* meaning = nullptr;
    };
    void showFound(const segy::Positions& positions);
    void showReadings(const segy::PositionGuess& guess);

    std::array<Row, g_positionRoles> m_rows;
    SegyPreview m_preview;
    QLabel* m_reason;
    QPushButton* m_readings;
    QLabel* m_fit;
};

} // namespace hv
