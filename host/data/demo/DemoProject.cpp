#include "host/data/demo/DemoProject.h"

#include "host/data/HVProject.h"
#include "host/kinds/IObjectKind.h"
#include "host/kinds/demo/SyntheticSurvey.h"

#include <QDir>
#include <QFileInfo>

namespace demo {

namespace {

hv::Result<void> makeReferenceSystem(HVProject& project)
{
    const auto crs = georef::Crs::fromAuthority(SyntheticSurvey::crsAuthority(), SyntheticSurvey::crsCode());
    return crs ? project.setCrs(*crs) : crs.failure();
}

} // namespace

hv::Result<void> makeObjects(HVProject& project, ObjectKind kind)
{
    HVVirtualDirectories& directories = project.directories(kind);
    for (const hv::DemoObject& object : hv::objectKind(kind).demo()) {
        if (const auto made = project.store().create({kind, object.name}, object.value); !made)
            return made.failure();
        if (object.directory.isEmpty())
            continue;
        if (!directories.contains(object.directory))
            if (auto added = directories.addDirectory(object.directory, QString()); !added)
                return added;
        if (auto filed = directories.fileObjects({object.name}, object.directory); !filed)
            return filed;
    }
    return directories.flush();
}

std::vector<Step> steps()
{
    std::vector<Step> list{{QStringLiteral("Reference System"), makeReferenceSystem}};
    for (const ObjectKindInfo& info : objectKinds())
        if (!hv::objectKind(info.kind).demo().empty())
            list.push_back({QString::fromLatin1(info.plural),
                            [kind = info.kind](HVProject& project) { return makeObjects(project, kind); }});
    return list;
}

hv::Result<void> makeProject(const QString& folder, const std::function<void(const QString& what)>& tell)
{
    if (QFileInfo::exists(folder) && !(QFileInfo(folder).isDir() && QDir(folder).isEmpty()))
        return hv::Failure(QStringLiteral("'%1' exists already and is not an empty folder.").arg(folder));
    const auto project = HVProject::create(folder, QStringLiteral("Demo"));
    if (!project)
        return project.failure();
    for (const Step& step : steps()) {
        tell(step.what);
        if (auto made = step.make(**project); !made)
            return made;
    }
    return {};
}

} // namespace demo
