#pragma once

namespace python {

/// When the pending exception is the KeyboardInterrupt of a stop that the user asked for, tells in a line of
/// information where the script was, clears the exception and returns true. Such an end is no error: there is nothing
/// to mark and no traceback to read. Anything else stays as it is. Needs the interpreter lock.
bool reportAskedStop();

} // namespace python
