#pragma once

class IAppWrapper;

namespace python {

/// The application around the interpreter, process-wide; null before the execution context is made. Not owned.
IAppWrapper* applicationInterface();
void setApplicationInterface(IAppWrapper* app);

} // namespace python
