#pragma once

#include "editor/debugger/Breakpoints.h"

#include <boost/python/detail/wrap_python.hpp>

#include <optional>
#include <vector>

namespace debugger {

/// What the debugger remembers about one code object, found once per change of the breakpoints and kept in the code
/// object itself, so that asking again costs a few nanoseconds.
struct CodeMarks
{
    unsigned generation = 0;
    int firstLine = 0;
    /// One entry per line from firstLine on; empty when the code has no line to stop at.
    std::vector<char> stops;
    /// False for the shipped standard library, in which steps do not stop.
    bool ownCode = true;

    bool any() const { return !stops.empty(); }
    bool stopsAt(int line) const
    {
        const auto index = static_cast<std::size_t>(line - firstLine);
        return index < stops.size() && stops[index];
    }
};

/// Needs the interpreter lock, GUI thread only. Works with an exception pending, which stays. The result lives until
/// the next call for the same code, or the code's end; without memory it is that of code without breakpoints.
const CodeMarks& marksOf(PyCodeObject* code, const Breakpoints& breakpoints);

/// The name under which the code was compiled; null (nothing pending) when it has no UTF-8 form.
std::optional<QString> fileOf(PyCodeObject* code);

/// Whether the file belongs to the Python tree that the application ships.
bool isShipped(const QString& codeFile);

} // namespace debugger
