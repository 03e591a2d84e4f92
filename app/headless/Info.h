#pragma once

#include "host/core/Result.h"

namespace headless {

/// `strativo info FILE...`: what there is to say about files, objects and projects, on standard output: 0 when all were
/// described, 1 when one could not be, 2 for a wrong command line.
int runInfoCommand(int argc, char** argv);

/// What it says about one: a headline and aligned lines. `path` is a file, an object's file without its suffix, or a
/// project's folder. Changes nothing on the disk.
hv::Result<QString> describePath(const QString& path);

} // namespace headless
