#pragma once

namespace python {

/// Lets multiprocessing start its processes with "spawn" unless a script chooses another method: a fork would copy an
/// application with threads and windows. Costs nothing until multiprocessing is imported. Needs the interpreter lock.
void installSpawnByDefault();

} // namespace python
