#pragma once

namespace python {

/// Puts `input` and `help`, which otherwise expect a console, into `builtins` as functions of a windowed program.
/// Needs the interpreter lock. On other threads than the GUI thread they raise
/// RuntimeError where they open a window.
void installReplacedBuiltins();

} // namespace python
