#pragma once

#include "host/core/Result.h"

#include <QString>

namespace headless {

/// Where a volume lies that a command line names: an object of a project, or a file by itself.
struct VolumePlace
{
    /// The project's folder; empty for a file by itself.
    QString project;
    /// The object's name, or the file's path.
    QString name;
};

/// The path of a volume that is there.
hv::Result<QString> existingVolume(const VolumePlace& place);

/// The path for a volume that is to be made; a project that is not there is made, too. Refused where one is, unless it
/// is to be replaced.
hv::Result<QString> newVolume(const VolumePlace& place, bool replaces);

} // namespace headless
