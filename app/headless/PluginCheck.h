#pragma once

namespace headless {

/// `strativo plugin check DIR`: takes a plug-in through its life for its author and reports each step on standard
/// output: 0 when it loads and unloads, 1 when it does not, 2 for a wrong command line or a missing Python tree.
int runPluginCommand(int argc, char** argv);

} // namespace headless
