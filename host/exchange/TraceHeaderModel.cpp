#include "host/exchange/TraceHeaderModel.h"

#include <QCoreApplication>
#include <QFont>

namespace hv {

const std::array<PositionRole, g_positionRoles>& positionRoles()
{
    using segy::PositionChoice;
    using segy::Positions;
    static constexpr std::array<PositionRole, g_positionRoles> roles{{
        {QT_TRANSLATE_NOOP("SegyPositions", "Inline number"), &Positions::inlineNumber, &PositionChoice::inlineNumber},
        {QT_TRANSLATE_NOOP("SegyPositions", "Crossline number"), &Positions::crosslineNumber,
         &PositionChoice::crosslineNumber},
        {QT_TRANSLATE_NOOP("SegyPositions", "X"), &Positions::x, &PositionChoice::x},
        {QT_TRANSLATE_NOOP("SegyPositions", "Y"), &Positions::y, &PositionChoice::y},
        {QT_TRANSLATE_NOOP("SegyPositions", "Scalar of X and Y"), &Positions::scalar, &PositionChoice::scalar},
    }};
    return roles;
}

QString nameOf(const PositionRole& role)
{
    return QCoreApplication::translate("SegyPositions", role.text);
}

void TraceHeaderModel::setPreview(const SegyPreview& preview)
{
    m_preview = preview;
    m_positions = preview.guess.positions;
    arrange();
}

void TraceHeaderModel::setPositions(const segy::Positions& positions)
{
    if (positions == m_positions)
        return;
    m_positions = positions;
    arrange();
}

void TraceHeaderModel::arrange()
{
    beginResetModel();
    m_columns.clear();
    for (const PositionRole& role : positionRoles())
        if (const segy::Position position = m_positions.*role.found; position.isSet())
            m_columns.push_back({position, nameOf(role), true});
    for (const segy::Field& field : segy::traceFields())
        m_columns.push_back({{field.byte, field.size}, QString::fromLatin1(field.name)});
    endResetModel();
}

int TraceHeaderModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_preview.headers.size() / segy::g_headerBytes);
}

int TraceHeaderModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() || !m_preview.file ? 0 : static_cast<int>(m_columns.size());
}

QVariant TraceHeaderModel::data(const QModelIndex& index, int role) const
{
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole)
        return {};
    const auto* header =
        reinterpret_cast<const std::byte*>(m_preview.headers.constData()) + index.row() * segy::g_headerBytes;
    return segy::valueAt(header, positionOf(index.column()), m_preview.file->layout().order);
}

QVariant TraceHeaderModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical)
        return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
    const Column& column = m_columns[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole)
        return QStringLiteral("%1\n%2").arg(column.name, segy::textOf(column.position));
    if (role == Qt::ToolTipRole)
        return tr("Bytes %1 to %2 of the trace header")
            .arg(column.position.byte)
            .arg(column.position.byte + column.position.size - 1);
    if (role == Qt::FontRole && column.isRead) {
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    return {};
}

} // namespace hv
