#include "host/kinds/ObjectKind.h"

QString ObjectKindInfo::suffix() const
{
    return QLatin1Char('.') + QString::fromLatin1(suffixes).section(QLatin1Char(' '), 0, 0);
}

QString ObjectKindInfo::objectName(const QString& fileName) const
{
    // The name is the complete base name: everything before the last point.
    const int point = fileName.lastIndexOf(QLatin1Char('.'));
    if (point <= 0)
        return {};
    const QStringRef suffix = fileName.midRef(point + 1);
    for (const char* next = suffixes; *next;) {
        const char* end = next;
        while (*end && *end != ' ')
            ++end;
        if (suffix.compare(QLatin1String(next, static_cast<int>(end - next)), Qt::CaseInsensitive) == 0)
            return fileName.left(point);
        next = *end ? end + 1 : end;
    }
    return {};
}

bool ObjectKindInfo::prefers(const QString& suffix, const QString& other) const
{
    const bool isFirst = suffix == this->suffix().midRef(1);
    return isFirst != (other == this->suffix().midRef(1)) ? isFirst : suffix < other;
}

const ObjectKindInfo& objectKindInfo(ObjectKind kind)
{
    const auto& kinds = objectKinds();
    return *std::find_if(kinds.begin(), kinds.end(), [kind](const ObjectKindInfo& info) { return info.kind == kind; });
}

std::optional<ObjectKind> objectKindFromNumber(int number)
{
    for (const ObjectKindInfo& info : objectKinds())
        if (static_cast<int>(info.kind) == number)
            return info.kind;
    return std::nullopt;
}
