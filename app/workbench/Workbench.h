#pragma once

/// app/workbench: the main window and everything that a person at the screen sees around the library's panels.
namespace workbench {

/// Opens the workbench and runs it until the user leaves; the process's exit status.
int run(int& argc, char** argv);

} // namespace workbench
