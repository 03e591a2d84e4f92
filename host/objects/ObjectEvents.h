#pragma once

#include "host/objects/ObjectChange.h"

#include <set>
#include <utility>
#include <vector>

namespace hv {

/// What has happened to a project's objects since it was last told: each object once, with what remains of all that
/// happened to it.
class ObjectEvents
{
public:
    void added(const ObjectKey& key);
    void removed(const ObjectKey& key);
    void renamed(const ObjectKey& before, const ObjectKey& after);
    void changed(const ObjectKey& key, const CellRegion& region);
    /// Anything may have happened to the kind's listing.
    void reset(ObjectKind kind) { m_resets.insert(kind); }

    bool isEmpty() const { return m_states.isEmpty() && m_resets.empty(); }

    struct Told
    {
        /// Kinds of which so many have come or gone that they are not told one by one.
        std::set<ObjectKind> resets;
        std::vector<std::pair<ObjectKey, ObjectKey>> renamed; ///< before and after
        std::vector<ObjectKey> removed;
        std::vector<ObjectKey> added;
        std::vector<std::pair<ObjectKey, CellRegion>> changed;
    };
    /// Begins anew.
    Told take();

private:
    struct State
    {
        bool wasThere;
        bool isThere;
        QString origin; ///< the name that it had, when it came by being renamed
        bool hasChanged = false;
        CellRegion region = {};
    };
    State& state(const ObjectKey& key, bool wasThere);

    QHash<ObjectKey, State> m_states;
    std::vector<ObjectKey> m_order;
    std::set<ObjectKind> m_resets;
};

} // namespace hv
