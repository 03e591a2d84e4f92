#include "host/display/PaletteRecipes.h"

namespace display {

const std::vector<PaletteRecipe>& paletteRecipes()
{
    using enum PaletteKind;
    // clang-format off
    static const std::vector<PaletteRecipe> recipes{
        {"GREY_SCALE", Sequential, {{0, 0x000000}, {100, 0xffffff}}},
        {"RED_WHITE_BLACK", Diverging, {{0, 0xff0000}, {50, 0xffffff}, {100, 0x000000}}},
        // A wide quiet zone: only the strong events are coloured.
        {"RED_WHITE_BLACK_2", Diverging,
         {{0, 0x5a0000}, {25, 0xe0301a}, {43, 0xffffff}, {57, 0xffffff}, {75, 0x6e6e6e}, {100, 0x000000}}},
        {"RED_WHITE_BLUE", Diverging, {{0, 0xff0000}, {50, 0xffffff}, {100, 0x0000ff}}},
        // Troughs red, peaks blue, the strongest of either dark.
        {"SEISMIC", Diverging,
         {{0, 0x5e0000}, {22, 0xd81c10}, {38, 0xf9b49c}, {50, 0xffffff}, {62, 0xa0bcf9}, {78, 0x1440dc}, {100, 0x00004e}}},
        {"SEISMIC_2", Diverging,
         {{0, 0xffe94a}, {18, 0xe8761c}, {34, 0x8c1a10}, {50, 0xdcdcdc}, {66, 0x17288c}, {82, 0x1f8ce0}, {100, 0x8ff2ff}}},
        {"SEISMIC_3", Diverging,
         {{0, 0x4e2000}, {25, 0xc98032}, {50, 0xffffff}, {75, 0x2f9c96}, {100, 0x00343a}}},
        {"RAINBOW", Sequential,
         {{0, 0x6a00c8}, {17, 0x0030ff}, {34, 0x00d8ff}, {50, 0x00e000}, {67, 0xffff00}, {84, 0xff7f00}, {100, 0xff0000}}},
        {"RANDOM", Categorical, {}},
        {"GEOMODEL", Categorical,
         {{0, 0xf4e285}, {0, 0x8fa9bf}, {0, 0xe0a458}, {0, 0x5b8e7d}, {0, 0xbc4b51}, {0, 0xd9d2c5}, {0, 0x6d597a},
          {0, 0xa7c957}, {0, 0x9c6644}, {0, 0x4d7ea8}, {0, 0xf2b5a7}, {0, 0x74796d}}},
        {"RED", Sequential, {{0, 0x000000}, {100, 0xff0000}}},
        {"GREEN", Sequential, {{0, 0x000000}, {100, 0x00ff00}}},
        {"BLUE", Sequential, {{0, 0x000000}, {100, 0x0000ff}}},
        // Time or depth of a surface: shallow warm, deep cold.
        {"HORIZON", Sequential,
         {{0, 0xd7303a}, {20, 0xf99a50}, {40, 0xfdf0a0}, {60, 0x9cd89a}, {80, 0x3c8ec0}, {100, 0x3a2c80}}},
        {"THINNING", Sequential, {{0, 0xffffff}, {30, 0xffffff}, {55, 0xffcf33}, {78, 0xe0301e}, {100, 0x3a0000}}},
        // Synclines blue, anticlines red, the flat parts nearly white.
        {"CURVATURE", Diverging,
         {{0, 0x10389a}, {25, 0x36b4e4}, {42, 0xe2f4f8}, {50, 0xffffff}, {58, 0xfdf0d6}, {75, 0xf49a2c}, {100, 0x8e1c0c}}},
        {"ENVELOPE", Sequential, {{0, 0x000000}, {33, 0xc00000}, {66, 0xffa000}, {85, 0xffff40}, {100, 0xffffff}}},
        {"ENERGY", Sequential, {{0, 0x0a0033}, {30, 0x4b1a9e}, {55, 0xd0307a}, {80, 0xff9e3d}, {100, 0xfffcc0}}},
        {"GRADIENT", Sequential, {{0, 0xf7f4ff}, {50, 0x8c6bb1}, {100, 0x2a0040}}},
        {"VELOCITY", Sequential,
         {{0, 0x0000b0}, {25, 0x00a8ff}, {45, 0x30e0a0}, {65, 0xf8f840}, {85, 0xff8000}, {100, 0xb00000}}},
        {"DENSITY", Sequential, {{0, 0xfffbc8}, {35, 0xd8c050}, {65, 0x5f8a48}, {100, 0x16302f}}},
        {"AZIMUTH", Cyclic,
         {{0, 0xff0000}, {100 / 6.0, 0xffff00}, {200 / 6.0, 0x00ff00}, {50, 0x00ffff}, {400 / 6.0, 0x0000ff},
          {500 / 6.0, 0xff00ff}, {100, 0xff0000}}},
        // Tight brown, porous blue.
        {"POROSITY", Sequential, {{0, 0x5b3216}, {30, 0xdcae58}, {60, 0x78d4c0}, {100, 0x0848b8}}},
        {"SAND", Sequential, {{0, 0x6b4a1a}, {50, 0xe0b040}, {100, 0xfff6c0}}},
        {"SHALE", Sequential, {{0, 0xe8ecdc}, {50, 0x8a9a7a}, {100, 0x26342a}}},
        {"DIP", Sequential, {{0, 0xffffff}, {50, 0x5aa0e0}, {100, 0x001040}}},
        {"THROW", Sequential, {{0, 0xf0f0f0}, {20, 0xffe08a}, {50, 0xf07a1e}, {78, 0xb4006a}, {100, 0x300050}}},
        {"PHASE", Cyclic, {{0, 0x30106b}, {25, 0x2080e8}, {50, 0xf4f4f4}, {75, 0xe07020}, {100, 0x30106b}}},
        // As light: low frequencies red, high ones violet.
        {"FREQUENCY", Sequential,
         {{0, 0xb00000}, {20, 0xff6a00}, {40, 0xffe000}, {60, 0x30b838}, {80, 0x1c5ce8}, {100, 0x7000a8}}},
        {"GREY_BLUE", Sequential, {{0, 0xd8d8d8}, {50, 0x7f8fb0}, {100, 0x0028a0}}},
        {"CYAN", Sequential, {{0, 0xffffff}, {100, 0x00ffff}}},
        {"MAGENTA", Sequential, {{0, 0xffffff}, {100, 0xff00ff}}},
        {"YELLOW", Sequential, {{0, 0xffffff}, {100, 0xffff00}}},
        {"BLUE_WHITE_RED", Diverging, {{0, 0x0000ff}, {50, 0xffffff}, {100, 0xff0000}}},
        {"DIP_BROWN", Sequential, {{0, 0xffffff}, {50, 0xc08a50}, {100, 0x3a1a00}}},
        {"GEOMODEL_RAINBOW", Categorical,
         {{0, 0x7030a0}, {0, 0x3a4fd0}, {0, 0x2090f0}, {0, 0x20c8d0}, {0, 0x20b070}, {0, 0x60c830}, {0, 0xb8dc28},
          {0, 0xfce828}, {0, 0xfcb820}, {0, 0xf88020}, {0, 0xe84020}, {0, 0xb01030}}},
        {"GEOMODEL_COLD", Categorical,
         {{0, 0x1d2f6f}, {0, 0x8390fa}, {0, 0x0fa3b1}, {0, 0xb5e2fa}, {0, 0x3a6ea5}, {0, 0x5fd3a8}, {0, 0x6a4c93},
          {0, 0xc3bef0}, {0, 0x136f63}, {0, 0xa0d8b3}}},
        {"GEOMODEL_DARK", Categorical,
         {{0, 0x2f3e46}, {0, 0x6b2737}, {0, 0x3b5d38}, {0, 0x5c4a1f}, {0, 0x2a2f6b}, {0, 0x6b4423}, {0, 0x1f5c5c},
          {0, 0x4a2545}, {0, 0x50545a}, {0, 0x14213d}}},
        {"GEOMODEL_WARM", Categorical,
         {{0, 0xffd166}, {0, 0xd1495b}, {0, 0xf4a259}, {0, 0x8c2f39}, {0, 0xfff0b3}, {0, 0xe76f51}, {0, 0xb5651d},
          {0, 0xf7b2ad}, {0, 0xc1121f}, {0, 0xe9c46a}}},
        // Shale grey-green up to clean sand yellow.
        {"SAND_PROBABILITY", Sequential, {{0, 0x384a3a}, {40, 0x8c9478}, {65, 0xd8c476}, {100, 0xffe000}}},
        {"AVO_CONTRAST", Diverging, {{0, 0x00ffff}, {25, 0x0060ff}, {50, 0x000000}, {75, 0xff3000}, {100, 0xffff00}}},
        {"GREEN_YELLOW_RED", Sequential, {{0, 0x00a000}, {50, 0xffff00}, {100, 0xe00000}}},
        {"BLUE_PURPLE_YELLOW", Sequential, {{0, 0x0010a0}, {50, 0xa0209a}, {100, 0xffee40}}},
        {"BLUE_WHITE_PURPLE", Diverging, {{0, 0x0848e8}, {50, 0xffffff}, {100, 0x8a08b8}}},
        {"COARSE_EXTRACTION", Categorical,
         {{0, 0xf2f2f2}, {0, 0x9fd0f0}, {0, 0x3f8fd8}, {0, 0x30a860}, {0, 0xf0e040}, {0, 0xf09020}, {0, 0xd82020},
          {0, 0x701050}}},
        {"SURFACE", Sequential, {{0, 0x2f4f4f}, {30, 0x5f8f7f}, {60, 0xb8c890}, {85, 0xece0b8}, {100, 0xffffff}}},
        // Four quarters: north blue, east yellow, south red, west green.
        {"DIP_AZIMUTH", Cyclic,
         {{0, 0x1b3fc4}, {12.5, 0x8fc9b0}, {25, 0xffe14d}, {37.5, 0xff8a2a}, {50, 0xd7261e}, {62.5, 0x8a5a2a},
          {75, 0x1fa35c}, {87.5, 0x1b78a0}, {100, 0x1b3fc4}}},
        // Lowland green, mountains brown, snow white.
        {"ELEVATION", Sequential,
         {{0, 0x1a6e3c}, {22, 0x7fc060}, {45, 0xf0e68c}, {68, 0xb8783a}, {86, 0x7a5038}, {95, 0xd8d0cc}, {100, 0xffffff}}},
        {"REFLECTION_STRENGTH", Sequential,
         {{0, 0xf0f0f0}, {30, 0x9ad0f0}, {55, 0x3a5ad0}, {80, 0xc02090}, {100, 0xff0000}}},
        {"ROTARY", Cyclic,
         {{0, 0x000000}, {17, 0xd00000}, {34, 0xffd000}, {50, 0xffffff}, {66, 0x00d0ff}, {83, 0x0030d0}, {100, 0x000000}}},
        // Visible light from violet to red, fading at both ends as for the eye.
        {"SPECTRUM", Sequential,
         {{0, 0x1c0030}, {12, 0x5a00c0}, {25, 0x0040ff}, {40, 0x00e0d0}, {52, 0x40f000}, {65, 0xf8f000}, {80, 0xff6000},
          {91, 0xd00000}, {100, 0x380000}}},
        {"STRUCTURAL", Sequential, {{0, 0xfffbd0}, {25, 0xf0a850}, {50, 0xc04060}, {75, 0x603090}, {100, 0x101040}}},
        {"TROPIC", Diverging, {{0, 0x007a87}, {25, 0x62c0b2}, {50, 0xf6f0d0}, {75, 0xf49c7c}, {100, 0xc0345a}}},
        // Continuous rock white, breaks dark, the sharpest red.
        {"VARIANCE", Sequential, {{0, 0xffffff}, {40, 0xd8d8d0}, {70, 0x5a5a60}, {86, 0x200808}, {100, 0xb00000}}},
        {"VELOCITY_2", Sequential,
         {{0, 0xf0f0ff}, {20, 0x80d0ff}, {45, 0x20a050}, {65, 0xf0e030}, {85, 0xd05010}, {100, 0x500000}}},
        {"WHITE_BLUE_GREEN", Sequential, {{0, 0xffffff}, {50, 0x2060e0}, {100, 0x00a040}}},
        // Overbank background dark, channel fill bright.
        {"CHANNELS", Sequential, {{0, 0x101828}, {35, 0x30507a}, {60, 0x3fa0a0}, {80, 0xf0c040}, {100, 0xff4020}}},
        {"256_COLORS", Categorical, {}},
        {"GREEN_TO_RED", Sequential, {{0, 0x00c000}, {100, 0xd00000}}},
        {"VIRIDIS", Sequential, {}},
    };
    // clang-format on
    return recipes;
}

} // namespace display
