#pragma once

namespace headless {

/// `strativo export FORMAT VOLUME FILE`: writes a volume for other programs: 0 when the file is there, 1 when not, 2
/// for a wrong command line.
int runExport(int argc, char** argv);

} // namespace headless
