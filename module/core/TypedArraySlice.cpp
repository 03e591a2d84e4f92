#include "module/core/TypedArraySlice.h"

namespace python {

namespace {

/// The integer value of a bound, `absent` for None; bounds beyond 64 bits become the nearest that has them.
bool readBound(PyObject* bound, const char* word, std::int64_t absent, std::int64_t& value)
{
    value = absent;
    if (bound == Py_None)
        return true;
    if (!PyIndex_Check(bound)) {
        PyErr_Format(PyExc_TypeError, "%sArray, expected 'int' but got '%s'", word, typeName(bound));
        return false;
    }
    value = PyNumber_AsSsize_t(bound, nullptr);
    return value != -1 || !PyErr_Occurred();
}

} // namespace

PyObject* raiseOutOfRange(std::int64_t position, std::int64_t count)
{
    return PyErr_Format(PyExc_IndexError, "index %lld out of range (0, %lld)", static_cast<long long>(position),
                        static_cast<long long>(count));
}

bool slicePositions(PyObject* slice, const char* word, std::int64_t count, SlicePositions& positions)
{
    const auto* bounds = reinterpret_cast<PySliceObject*>(slice);
    std::int64_t stop = 0;
    if (!readBound(bounds->step, word, 1, positions.step))
        return false;
    if (positions.step == 0) {
        PyErr_SetString(PyExc_ValueError, "slice step cannot be zero");
        return false;
    }
    const bool isForward = positions.step > 0;
    if (!readBound(bounds->start, word, isForward ? 0 : count - 1, positions.start) ||
        !readBound(bounds->stop, word, isForward ? count : -1, stop))
        return false;

    const std::int64_t start = positions.start;
    positions.number = 0;
    if (isForward ? start >= stop : start <= stop)
        return true;
    if (!isValidIndex(start, count)) {
        raiseOutOfRange(start, count);
        return false;
    }
    // Unsigned, because the distance between any two 64-bit bounds fits only there.
    const auto from = static_cast<std::uint64_t>(start);
    const std::uint64_t distance =
        isForward ? static_cast<std::uint64_t>(stop) - from : from - static_cast<std::uint64_t>(stop);
    const std::uint64_t stride =
        isForward ? static_cast<std::uint64_t>(positions.step) : 0 - static_cast<std::uint64_t>(positions.step);
    const std::uint64_t selected = (distance - 1) / stride + 1;
    const std::uint64_t inside = (isForward ? static_cast<std::uint64_t>(count) - 1 - from : from) / stride + 1;
    if (selected > inside) {
        const std::uint64_t offset = inside * stride;
        raiseOutOfRange(static_cast<std::int64_t>(isForward ? from + offset : from - offset), count);
        return false;
    }
    positions.number = static_cast<std::int64_t>(selected);
    return true;
}

} // namespace python
