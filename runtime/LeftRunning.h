#pragma once

namespace python {

/// For what scripts left running when the interpreter ends.
enum class Patience
{
    Short,     ///< half a second: the user has closed the window
    Unlimited, ///< as plain Python; KeyboardInterrupt ends the waiting
};

/// Calls the exit functions, among them those of thread and process pools, waits for threads that are no daemons, and
/// tells those that stay to leave. The interpreter can be finalised afterwards without waiting. On the interpreter's
/// main thread, with the lock.
void endWhatIsLeftRunning(Patience patience);

} // namespace python
