#pragma once

/// app/demo: `strativo demo DIR`, which makes a project to try things out with.
namespace demo {

/// Runs the command line after the word "demo": 0 when the project was made, 1 when making it failed, 2 for wrong
/// usage.
int run(int argc, char** argv);

} // namespace demo
