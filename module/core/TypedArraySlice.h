#pragma once

#include "module/core/ArrayInstance.h"
#include "runtime/Errors.h"

namespace python {

/// The positions a slice selects from `count` elements. Nothing is counted from the end: a negative bound is a position
/// before the first element. Left-out bounds mean the whole range in the direction of the step.
struct SlicePositions
{
    std::int64_t start;
    std::int64_t step;
    std::int64_t number; ///< how many are selected
};

/// False with an exception set: a bound that is no integer, a step of zero, or a selected position out of range (the
/// message names the first one).
bool slicePositions(PyObject* slice, const char* word, std::int64_t count, SlicePositions& positions);

/// The IndexError of positions that do not come from a single index.
PyObject* raiseOutOfRange(std::int64_t position, std::int64_t count);

} // namespace python
