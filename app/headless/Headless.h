#pragma once

/// app/headless: `strativo run`, which runs one script with the workbench's objects behind it but no window shown.
namespace headless {

/// Runs the command line after the word "run": 0 when the script ran to its end, 1 when it failed, what it gave to
/// sys.exit(), 2 when it never started (wrong usage, missing file, missing Python tree).
int run(int argc, char** argv);

} // namespace headless
