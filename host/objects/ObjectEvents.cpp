#include "host/objects/ObjectEvents.h"

#include <QSet>

#include <map>

namespace hv {

namespace {

constexpr int g_most = 100;

} // namespace

ObjectEvents::State& ObjectEvents::state(const ObjectKey& key, bool wasThere)
{
    auto found = m_states.find(key);
    if (found == m_states.end()) {
        m_order.push_back(key);
        found = m_states.insert(key, {wasThere, wasThere, {}});
    }
    return *found;
}

void ObjectEvents::added(const ObjectKey& key)
{
    State& now = state(key, false);
    // Gone and there again is another content.
    now.hasChanged = now.wasThere;
    now.isThere = true;
    now.origin.clear();
}

void ObjectEvents::removed(const ObjectKey& key)
{
    state(key, true).isThere = false;
}

void ObjectEvents::renamed(const ObjectKey& before, const ObjectKey& after)
{
    const State old = state(before, true);
    state(before, true).isThere = false;
    State& now = state(after, false);
    now.isThere = true;
    now.origin = old.wasThere ? before.name : old.origin;
    now.hasChanged = old.hasChanged;
    now.region = old.region;
}

void ObjectEvents::changed(const ObjectKey& key, const CellRegion& region)
{
    State& now = state(key, true);
    now.region = now.hasChanged ? now.region.united(region) : region;
    now.hasChanged = true;
}

ObjectEvents::Told ObjectEvents::take()
{
    Told told;
    told.resets = std::move(m_resets);
    QSet<ObjectKey> origins;
    for (const ObjectKey& key : m_order) {
        const State& now = m_states[key];
        const ObjectKey origin{key.kind, now.origin};
        const auto old = m_states.constFind(origin);
        if (now.isThere && !now.wasThere && !now.origin.isEmpty() && old->wasThere && !old->isThere) {
            told.renamed.emplace_back(origin, key);
            origins.insert(origin);
        }
    }
    std::map<ObjectKind, int> counts;
    for (const ObjectKey& key : m_order) {
        const State& now = m_states[key];
        const bool cameByRenaming = now.isThere && !now.wasThere && origins.contains(ObjectKey{key.kind, now.origin});
        if (now.isThere && !now.wasThere && !cameByRenaming)
            told.added.push_back(key);
        else if (now.wasThere && !now.isThere && !origins.contains(key))
            told.removed.push_back(key);
        else if (now.isThere && now.hasChanged)
            told.changed.emplace_back(key, now.region);
        if (now.isThere != now.wasThere && ++counts[key.kind] > g_most)
            told.resets.insert(key.kind);
    }
    m_states.clear();
    m_order.clear();
    m_resets.clear();
    return told;
}

} // namespace hv
