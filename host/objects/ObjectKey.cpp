#include "host/objects/ObjectKey.h"

#include <QFile>

#include <algorithm>

namespace hv {

namespace {

// Of 255 bytes that a file name may have, some are left for the suffix and for a temporary file's.
constexpr int g_longestName = 200;

} // namespace

QString shown(const ObjectKey& key)
{
    return QStringLiteral("%1 '%2'").arg(QLatin1String(objectKindInfo(key.kind).singular), key.name);
}

bool isObjectName(const QString& name)
{
    return !name.isEmpty() && QFile::encodeName(name).size() <= g_longestName &&
           std::none_of(name.begin(), name.end(),
                        [](QChar c) { return c == QLatin1Char('/') || c.category() == QChar::Other_Control; });
}

} // namespace hv
