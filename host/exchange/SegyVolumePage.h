#pragma once

#include "host/exchange/SegyInspector.h"
#include "host/segy/Import.h"

#include <QWidget>

#include <array>

class HVProject;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;

namespace hv {

/// What the headers of a file do not say for sure, and which part of it is imported. Empty fields take what is found.
class SegyVolumePage : public QWidget
{
    Q_OBJECT

public:
    /// The project's reference system and domain are what is proposed; it is not kept.
    explicit SegyVolumePage(const HVProject& project, QWidget* parent = nullptr);

    void setPreview(const SegyPreview& preview);
    void setScan(const segy::Scan& scan);
    void choose(segy::ScanChoice& choice) const;
    void choose(segy::ImportChoice& choice) const;
    /// What cannot be understood; empty when all can.
    QString problem() const;

    enum Axis
    {
        Inlines,
        Crosslines,
        Samples,
    };
    QLineEdit* first(Axis axis) const { return m_parts[axis].first; }
    QLineEdit* last(Axis axis) const { return m_parts[axis].last; }
    QLineEdit* every(Axis axis) const { return m_parts[axis].every; }
    QComboBox* domain() const { return m_domain; }

Q_SIGNALS:
    /// Another scan is needed ...
    void edited();
    /// ... or only another import.
    void partEdited();

private:
    struct Part
    {
        QLineEdit* first = nullptr;
        QLineEdit* last = nullptr;
        QLineEdit* every = nullptr;
    };
    void addSamples(QGridLayout& grid, const HVProject& project);
    void addFormat(QGridLayout& grid);
    void addCrs(QGridLayout& grid, const HVProject& project);
    void addParts(QGridLayout& grid);
    segy::PartChoice part(Axis axis) const;
    QString crs() const;
    void showCrs();

    QComboBox* m_domain;
    QLineEdit* m_interval;
    QLineEdit* m_start;
    QComboBox* m_format;
    QComboBox* m_order;
    QComboBox* m_crs;
    QLineEdit* m_code;
    QLabel* m_crsName;
    std::array<Part, 3> m_parts;
    bool m_isDomainChosen;
    QString m_wkt; // of the code
};

} // namespace hv
