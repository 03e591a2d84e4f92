#pragma once

#include <boost/python/detail/wrap_python.hpp>

#include <csignal>

namespace python {

/// What wakes the GUI thread while Python code occupies it. Ignored by default everywhere, so a late one harms nobody.
/// The interpreter turns it into a call between two instructions; unlike a pending call it also wakes what waits:
/// time.sleep, select, locks.
inline constexpr int g_wakeUpSignal = SIGURG;

/// Lets the interpreter call `handler` (with the number and the frame, as any handler) for it, and keeps the signal for
/// the application: scripts can no more handle or block it than SIGKILL. Once, on the interpreter's main thread, with
/// the lock; `handler` stays valid.
void installWakeUpSignal(PyMethodDef& handler);

} // namespace python
