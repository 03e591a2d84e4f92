#pragma once

#include <QPainterPath>
#include <QString>

#include <optional>

class QByteArray;

/// The lines, areas and points of a GeoJSON text (RFC 7946), as they lie on the map.
struct MapOutline
{
    QPainterPath lines;
    QPainterPath areas;
    QVector<QPointF> points;
    QRectF bounds; ///< map coordinates; may have no width or height
};

/// Null with a sentence in `error` for what is no GeoJSON or holds no geometry.
std::optional<MapOutline> readMapOutline(const QByteArray& text, QString& error);
