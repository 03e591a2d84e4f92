#pragma once

#include "host/kinds/ObjectKind.h"

#include <QHash>
#include <QMetaType>
#include <QString>

namespace hv {

/// Which object of a project: in place of paths, which change when it is renamed or its project is moved.
struct ObjectKey
{
    ObjectKind kind;
    QString name;

    friend bool operator==(const ObjectKey& a, const ObjectKey& b) { return a.kind == b.kind && a.name == b.name; }
    friend bool operator!=(const ObjectKey& a, const ObjectKey& b) { return !(a == b); }
    friend uint qHash(const ObjectKey& key, uint seed = 0)
    {
        return ::qHash(key.name, seed) ^ static_cast<uint>(key.kind);
    }
};

/// For people: "Color Bar 'Amplitude'".
QString shown(const ObjectKey& key);

/// True for what can be the name of an object: not empty, no slash or control character, not too long for a file.
bool isObjectName(const QString& name);

} // namespace hv

Q_DECLARE_METATYPE(hv::ObjectKey)
