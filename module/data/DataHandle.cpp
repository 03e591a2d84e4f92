#include "module/data/DataHandle.h"

#include "host/data/HVProject.h"
#include "host/kinds/IObjectKind.h"
#include "host/services/IAppWrapper.h"
#include "runtime/ApplicationInterface.h"
#include "runtime/GuiThread.h"

#include <QFileInfo>

namespace python {

namespace {

/// The object that has this very file, or would have it.
std::optional<hv::ObjectKey> keyOf(HVProject& project, ObjectKind kind, const QString& filename)
{
    auto key = project.keyOf(filename);
    if (!key || key->kind != kind)
        return std::nullopt;
    // A file beside another of the same name, which is the object.
    const bool isAnother =
        project.store().contains(*key) && QFileInfo(project.store().path(*key)) != QFileInfo(filename);
    return isAnother ? std::nullopt : key;
}

/// What the project holds of the file, which is what lies in it; nothing when it is no object of the project or the
/// application has changes of it that are not saved.
hv::ObjectValue heldValue(ObjectKind kind, const QString& filename)
{
    HVProject* project = openProject();
    const auto key = project ? keyOf(*project, kind, filename) : std::nullopt;
    const auto object = key ? project->store().open(*key) : hv::Failure(QString());
    if (!object || (*object)->isModified())
        return {};
    const auto value = (*object)->value();
    return value ? *value : hv::ObjectValue();
}

} // namespace

HVProject* openProject()
{
    const IAppWrapper* app = applicationInterface();
    return app && isGuiThread() ? app->currentProject() : nullptr;
}

hv::Result<hv::ObjectValue> readValue(ObjectKind kind, const QString& filename)
{
    if (hv::ObjectValue held = heldValue(kind, filename))
        return held;
    return hv::objectKind(kind).read(filename);
}

hv::Result<void> writeValue(ObjectKind kind, const QString& filename, const hv::ObjectValue& value, Existing existing)
{
    HVProject* project = openProject();
    const auto key = project ? keyOf(*project, kind, filename) : std::nullopt;
    if (!key)
        return hv::objectKind(kind).write(value, filename);
    if (existing == Existing::Replaced && project->store().contains(*key))
        return project->store().save(*key, value);
    return project->store().create(*key, value, QFileInfo(filename).suffix());
}

} // namespace python
