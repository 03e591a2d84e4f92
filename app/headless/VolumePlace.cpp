#include "app/headless/VolumePlace.h"

#include "host/data/HVProject.h"

#include <QDir>
#include <QFileInfo>

namespace headless {

namespace {

hv::Result<QString> inProject(const VolumePlace& place, bool isNew)
{
    const bool isNothing =
        !QFileInfo::exists(place.project) || (QFileInfo(place.project).isDir() && QDir(place.project).isEmpty());
    const auto opened =
        isNew && isNothing ? HVProject::create(place.project, QString()) : HVProject::open(place.project);
    if (!opened)
        return opened.failure();
    HVProject* const project = opened->get();
    if (!HVProject::isObjectName(place.name))
        return hv::Failure(QStringLiteral("\"%1\" cannot be the name of an object.").arg(place.name));
    const QString path = project->filename(ObjectKind::Volume, place.name);
    if (isNew && !QDir().mkpath(QFileInfo(path).path()))
        return hv::Failure(QStringLiteral("The folder \"%1\" cannot be made.").arg(QFileInfo(path).path()));
    return path;
}

} // namespace

hv::Result<QString> existingVolume(const VolumePlace& place)
{
    hv::Result<QString> path = place.project.isEmpty() ? hv::Result<QString>(place.name) : inProject(place, false);
    if (path && !QFileInfo::exists(*path))
        return hv::Failure(place.project.isEmpty()
                               ? QStringLiteral("There is no file \"%1\".").arg(place.name)
                               : QStringLiteral("The project has no volume \"%1\".").arg(place.name));
    return path;
}

hv::Result<QString> newVolume(const VolumePlace& place, bool replaces)
{
    hv::Result<QString> path = place.project.isEmpty() ? hv::Result<QString>(place.name) : inProject(place, true);
    if (path && !replaces && QFileInfo::exists(*path))
        return hv::Failure(QStringLiteral("\"%1\" exists already; --replace replaces it.").arg(*path));
    return path;
}

} // namespace headless
