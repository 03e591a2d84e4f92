#pragma once

namespace python {

/// The calling thread is the one that runs the application's windows, or will once there are any. Once, before scripts
/// run.
void setGuiThread();

/// Whether the calling thread is that one.
bool isGuiThread();

/// Windows belong to the thread that runs them; RuntimeError on any other, where using them would bring the application
/// down, and in a forked copy of the process, which has no windows of its own. Needs the interpreter lock.
void requireGuiThread();

/// Makes sure that windows, fonts and icons can be made: an application without a window makes what they need now, for
/// which it needs to be asked on the GUI thread; RuntimeError on another. Needs the interpreter lock.
void requireWindows();

} // namespace python
