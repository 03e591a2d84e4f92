#pragma once

#include "host/exchange/SegyInspector.h"

#include <QAbstractTableModel>

#include <array>

namespace hv {

/// What is read from a trace header, in the order in which people look for it.
struct PositionRole
{
    const char* text; ///< translated in the context "SegyPositions"
    segy::Position segy::Positions::*found;
    std::optional<segy::Position> segy::PositionChoice::*chosen;
};

inline constexpr int g_positionRoles = 5;
const std::array<PositionRole, g_positionRoles>& positionRoles();
QString nameOf(const PositionRole& role);

/// The first traces of a file as rows; as columns what is read from their headers, then every field of the standard.
class TraceHeaderModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void setPreview(const SegyPreview& preview);
    void setPositions(const segy::Positions& positions);
    segy::Position positionOf(int column) const { return m_columns[static_cast<std::size_t>(column)].position; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Column
    {
        segy::Position position;
        QString name;
        bool isRead = false;
    };
    void arrange();

    SegyPreview m_preview;
    segy::Positions m_positions;
    std::vector<Column> m_columns;
};

} // namespace hv
