#pragma once

namespace python {

/// Puts `input` and `help`, which otherwise expect a console, into `builtins` as functions of a windowed program.
/// Needs the interpreter lock. Both must be called from runs on the GUI thread.
void installReplacedBuiltins();

} // namespace python
