#pragma once

namespace headless {

/// `strativo import FILE`: makes a volume of a SEG-Y file, or of an array, and says on standard output how it was
/// understood: 0 when the volume is there, 1 when not, 2 for a wrong command line.
int runImport(int argc, char** argv);

} // namespace headless
