#include "host/data/demo/DemoProject.h"

#include "host/data/HVProject.h"
#include "host/data/demo/DemoSteps.h"
#include "host/formats/JsonFile.h"

#include <QDir>
#include <QFileInfo>

namespace demo {

const std::vector<Step>& steps()
{
    static const std::vector<Step> list{
        {"Reference system", makeReferenceSystem},
        {"Survey outline", makeCultures},
        {"Colour bars", makeColorBars},
        {"Wells", makeWells},
    };
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
        tell(QString::fromLatin1(step.what));
        if (!step.make(*project, error))
            return false;
    }
    return true;
}

} // namespace demo
