#pragma once

namespace python {

/// Whether the calling thread is the one that runs the application's windows.
bool isGuiThread();

/// Windows belong to the thread that runs them; RuntimeError on any other, where using them would bring the application
/// down, and in a forked copy of the process, which has no windows of its own. Needs the interpreter lock.
void requireGuiThread();

} // namespace python
