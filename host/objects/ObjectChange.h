#pragma once

#include "host/core/CellRegion.h"
#include "host/objects/ObjectKey.h"

namespace hv {

/// What has happened to an object.
struct ObjectChange
{
    enum class What
    {
        Content,
        Renamed, ///< `key` is the new one
        Removed,
        Restored, ///< is there again after it was removed
    };

    ObjectKey key;
    What what;
    quint64 revision = 0;   ///< the object's after the change; 0 of an object that nobody holds
    CellRegion region = {}; ///< of Content: what differs
};

} // namespace hv

Q_DECLARE_METATYPE(hv::ObjectChange)
