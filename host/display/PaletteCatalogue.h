#pragma once

#include "host/display/ColorBar.h"
#include "host/display/Enumerations.h"

#include <QStringList>

#include <vector>

namespace display {

/// What a palette is made for.
enum class PaletteKind : int
{
    /// From low to high.
    Sequential,
    /// Two sides of a neutral centre, which is lighter (or darker) than both.
    Diverging,
    /// Angles: both ends have the same colour.
    Cyclic,
    /// Classes: neighbours have nothing to do with each other.
    Categorical,
};

/// The predefined colour bars. Built at the first call and constant from then on, so any thread may read it.
class PaletteCatalogue
{
public:
    struct Palette
    {
        QString identifier;
        PaletteKind kind;
        /// Named like the palette.
        ColorBar colorBar;
    };

    static const PaletteCatalogue& instance();

    const std::vector<Palette>& palettes() const { return m_palettes; }
    QStringList identifiers() const;

    /// Null for an identifier that is not in the catalogue.
    const Palette* find(const QString& identifier) const;

    /// The palette behind a type; null for a number without a name. The number 11 is GREEN, and AI (acoustic
    /// impedance), which has no palette of its own, is shown with VELOCITY, the quantity that drives it.
    const Palette* find(ColorBarType type) const;

private:
    PaletteCatalogue();

    std::vector<Palette> m_palettes;
};

} // namespace display
