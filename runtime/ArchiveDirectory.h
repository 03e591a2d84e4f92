#pragma once

#include <string>

namespace python {

/// Gives the interpreter the directory of the archive that its library lies in. It would read it itself, entry by entry
/// in Python code, which takes a quarter of the time that it needs to start. An archive that is not as plain as the one
/// that is shipped is left to the interpreter.
///
/// Once the import system is there and before anything is imported from the archive. Never leaves an exception pending.
void presentArchive(const std::wstring& archive);

} // namespace python
