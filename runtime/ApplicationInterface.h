#pragma once

class IAppWrapper;

namespace hv {
class ChangeLog;
}

namespace python {

/// The application around the interpreter, process-wide; null before the execution context is made. Not owned.
IAppWrapper* applicationInterface();
void setApplicationInterface(IAppWrapper* app);

/// Where changes of the open project are recorded, for the steps that scripts and callbacks are; null without a
/// project. GUI thread only.
hv::ChangeLog* projectChanges();

} // namespace python
