#pragma once

#include "host/core/Result.h"
#include "host/display/ColorBar.h"

#include <QByteArray>

/// Colour bars on disk. The native format is a ParaView colour map (JSON, UTF-8); a file whose suffix is "cpt" is a
/// colour palette table of the Generic Mapping Tools instead. A failure is the reason alone, "line 3: ...", for
/// whoever names the file.
namespace display {

/// Reads either format, told apart by the content. `name` picks one of several colour maps in a file; empty takes the
/// first. A bar without a name in the file takes the file's complete base name.
hv::Result<ColorBar> readColorBar(const QString& filename, const QString& name);

/// Replaces the file only when everything is written.
hv::Result<void> writeColorBar(const ColorBar& bar, const QString& filename);

/// ParaView colour maps: an array of objects (or one object) with Name, ColorSpace, RGBPoints or IndexedColors, Points
/// (opacities), NanColor, BelowRangeColor and AboveRangeColor.
hv::Result<ColorBar> readColorMap(const QByteArray& json, const QString& name);
QByteArray writeColorMap(const ColorBar& bar);

/// Colour palette tables as described in gmtcolors(5): slices with separate components, r/g/b, h-s-v, c/m/y/k, greys,
/// names or #RRGGBB, categories, the models RGB, HSV, CMYK and GRAY ("+HSV": interpolated in HSV too), B, F and N
/// lines, transparency after @, RANGE and HINGE of normalised tables, ascending or descending. Patterns are refused.
hv::Result<ColorBar> readPaletteTable(const QByteArray& text);
QByteArray writePaletteTable(const ColorBar& bar);

/// What both writers store: the exact points, or the entries when there are none.
QVector<ColorPoint> storedPoints(const ColorBar& bar);

/// A number as both writers store it: the shortest form that reads back as the same.
QString numberText(double value);

} // namespace display
