#pragma once

namespace georef {

// The numbers of these enumerations are stored in files and used by scripts: they never change.

/// The block axis that frames are cut across. An inline frame has one inline number (block y), a crossline frame one
/// crossline number (block x), a time slice one vertical sample (block z).
enum class ScanOrientation : int
{
    Inline = 0,
    Crossline = 1,
    Timeslice = 2,
};

/// The frame a viewer's scales are labelled in.
enum class ScaleType : int
{
    Pixel = 0,
    World = 1,
    Survey = 2,
};

/// Units of lengths and times; the US ones are survey units (1 foot = 1200/3937 m). There is no 5.
enum class Unit : int
{
    Meters = 0,
    Feet = 1,
    Milliseconds = 2,
    Seconds = 3,
    Kilometers = 4,
    Miles = 6,
    FeetUS = 7,
    Decimeters = 8,
    Centimeters = 9,
    MilesUS = 10,
    Yards = 11,
    YardsUS = 12,
    Inches = 13,
    InchesUS = 14,
};

/// What the vertical axis measures.
enum class Domain : int
{
    Unknown = 0,
    Time = 1,
    Depth = 2,
    All = 3,
};

} // namespace georef
