#pragma once

namespace python {

/// Windows belong to the thread that runs them; RuntimeError on any other, where using them would bring the application
/// down. Needs the interpreter lock.
void requireGuiThread();

} // namespace python
