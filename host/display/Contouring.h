#pragma once

#include "host/display/Enumerations.h"

#include <QObject>
#include <QPen>

#include <vector>

namespace display {

/// The contour-line settings of one map view. The view shares ownership with the scripts that hold the settings,
/// listens to changed() and redraws its lines. GUI thread.
class Contouring : public QObject
{
    Q_OBJECT

public:
    explicit Contouring(QObject* parent = nullptr);

    bool isVisible() const { return m_isVisible; }
    void setVisible(bool isVisible);

    /// Whether lines are drawn in [minimum, maximum] only. The limits are in the unit of the contoured values and are
    /// independent of each other: while minimum > maximum no line is drawn.
    bool isLimited() const { return m_isLimited; }
    void setLimited(bool isLimited);
    double minimum() const { return m_minimum; }
    void setMinimum(double minimum);
    double maximum() const { return m_maximum; }
    void setMaximum(double maximum);

    ContouringMode mode() const { return m_mode; }
    void setMode(ContouringMode mode);

    /// Distance between lines in the unit of the contoured values. False, without a change, unless step > 0.
    double step() const { return m_step; }
    bool setStep(double step);

    const QPen& pen() const { return m_pen; }
    void setPen(const QPen& pen);

    /// Range of the contoured values, kept up to date by the view.
    double valueMinimum() const { return m_valueMinimum; }
    double valueMaximum() const { return m_valueMaximum; }
    void setValueRange(double minimum, double maximum);

    /// The values to draw lines at, ascending: the multiples of step in the contoured range and the limits. A step that
    /// asks for more than `most` lines is taken ten times as large until they are few enough.
    std::vector<double> levels(int most = 1000) const;

Q_SIGNALS:
    /// After every accepted assignment.
    void changed();

private:
    bool m_isVisible = false;
    bool m_isLimited = false;
    double m_minimum = 0;
    double m_maximum = 0;
    ContouringMode m_mode = ContouringMode::Data;
    double m_step = 1;
    QPen m_pen;
    double m_valueMinimum = 0;
    double m_valueMaximum = 0;
};

} // namespace display
