#pragma once

namespace python {

/// From now on errors in which the binding layer speaks of C++ reach scripts in Python's terms, whichever registered
/// function they come from. Types of exceptions stay as they are. What a function takes is said as its docstring says
/// it:
///
///     ColorBar.setRange(), expected (minimum: float, maximum: float) but got (str, int)
///     BlockSpace.scanOrientation, expected 'ScanOrientation' but got 'str' instead
///
/// A call that succeeds pays one jump. Called once, with the interpreter lock, before functions are used.
void translateArgumentErrors();

} // namespace python
