#pragma once

#include "host/kinds/ObjectKind.h"

#include <QString>

#include <vector>

namespace hv {

struct ObjectFile
{
    QString name;
    QString fileName; // without folders
};

/// The objects of a kind in a folder, in natural order of their names, one per name (of several suffixes the kind's
/// first wins). Folders and files whose names are not text are no objects; a folder that cannot be read has none.
/// Ten thousand files take some ten milliseconds.
std::vector<ObjectFile> listObjects(const QString& folder, const ObjectKindInfo& info);

} // namespace hv
