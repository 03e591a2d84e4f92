#pragma once

#include "host/display/PaletteCatalogue.h"

#include <cstdint>
#include <vector>

namespace display {

/// How one palette of the catalogue is made.
struct PaletteRecipe
{
    /// `percent` of the way from the lowest value to the highest, colour as 0xRRGGBB.
    struct Stop
    {
        double percent;
        std::uint32_t color;
    };

    const char* identifier;
    PaletteKind kind;
    /// Categorical palettes: equal bands, percent is not used. Empty for the palettes that are computed.
    std::vector<Stop> stops;
};

/// In the order of the catalogue.
const std::vector<PaletteRecipe>& paletteRecipes();

} // namespace display
