#include "host/data/demo/DemoProject.h"

#include "host/data/HVProject.h"
#include "host/formats/JsonFile.h"
#include "host/kinds/IObjectKind.h"
#include "host/kinds/demo/SyntheticSurvey.h"

#include <QDir>
#include <QFileInfo>

namespace demo {

namespace {

bool makeReferenceSystem(HVProject& project, QString* error)
{
    const auto crs = georef::Crs::fromAuthority(SyntheticSurvey::crsAuthority(), SyntheticSurvey::crsCode(), error);
    return !crs.isNull() && project.setCrs(crs, error);
}

} // namespace

bool makeObjects(HVProject& project, ObjectKind kind, QString* error)
{
    HVVirtualDirectories& directories = project.directories(kind);
    for (const hv::DemoObject& object : hv::objectKind(kind).demo()) {
        if (const auto made = project.store().create({kind, object.name}, object.value); !made)
            return hv::fail(error, made.failure().sentence);
        if (object.directory.isEmpty())
            continue;
        if (!directories.contains(object.directory) && !directories.addDirectory(object.directory, QString(), error))
            return false;
        if (!directories.fileObjects({object.name}, object.directory, error))
            return false;
    }
    return directories.flush(error);
}

std::vector<Step> steps()
{
    std::vector<Step> list{{QStringLiteral("Reference System"), makeReferenceSystem}};
    for (const ObjectKindInfo& info : objectKinds())
        if (!hv::objectKind(info.kind).demo().empty())
            list.push_back({QString::fromLatin1(info.plural), [kind = info.kind](HVProject& project, QString* error) {
                                return makeObjects(project, kind, error);
                            }});
    return list;
}

bool makeProject(const QString& folder, const std::function<void(const QString& what)>& tell, QString* error)
{
    if (QFileInfo::exists(folder) && !(QFileInfo(folder).isDir() && QDir(folder).isEmpty()))
        return hv::fail(error, QStringLiteral("'%1' exists already and is not an empty folder.").arg(folder));
    const auto project = HVProject::create(folder, QStringLiteral("Demo"), error);
    if (!project)
        return false;
    for (const Step& step : steps()) {
        tell(step.what);
        if (!step.make(*project, error))
            return false;
    }
    return true;
}

} // namespace demo
