#pragma once

#include "runtime/LeftRunning.h"

#include <string>

namespace python {

/// Starts the interpreter isolated from the machine's own Python: `searchPath` (entries ended by ";") is the whole
/// module search path, no environment variable counts, no bytecode is written, assertions are compiled out, text is
/// UTF-8. Child processes find the search path in STRATIVO_PYTHONPATH. The calling thread becomes the interpreter's
/// main thread and holds the lock. A start that fails ends the process with the interpreter's own fatal error.
void startInterpreter(const std::wstring& searchPath);

/// Ends what scripts left running as far as it can be ended, then finalises the interpreter. The caller holds the lock,
/// which no longer exists afterwards.
void stopInterpreter(Patience patience);

} // namespace python
