#pragma once

#include "host/core/Result.h"

#include <QPainterPath>
#include <QString>

class QByteArray;

/// The lines, areas and points of a GeoJSON text (RFC 7946), as they lie on the map.
struct MapOutline
{
    QPainterPath lines;
    QPainterPath areas;
    QVector<QPointF> points;
    QRectF bounds; ///< map coordinates; may have no width or height
};

/// Fails for what is no GeoJSON or holds no geometry.
hv::Result<MapOutline> readMapOutline(const QByteArray& text);
