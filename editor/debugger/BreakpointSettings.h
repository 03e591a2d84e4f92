#pragma once

#include <QString>

namespace debugger {

/// What belongs to a breakpoint beside its place.
struct BreakpointSettings
{
    bool enabled = true;
    /// Python expression, evaluated in the frame that reaches the line; empty stops always.
    QString condition;

    bool operator==(const BreakpointSettings&) const = default;
};

} // namespace debugger
