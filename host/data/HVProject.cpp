#include "host/data/HVProject.h"

#include "host/formats/JsonFile.h"
#include "host/formats/PartFile.h"
#include "host/formats/SettingNames.h"
#include "host/objects/NaturalOrder.h"
#include "host/services/HVEventBus.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

constexpr int g_formatMajor = 1;

const QString g_versionKey = QStringLiteral("version");
const QString g_nameKey = QStringLiteral("name");
const QString g_crsKey = QStringLiteral("crs");
const QString g_horizontalUnitKey = QStringLiteral("horizontalUnit");
const QString g_verticalUnitKey = QStringLiteral("verticalUnit");
const QString g_domainKey = QStringLiteral("domain");

const QString g_directoriesFolder = QStringLiteral("directories");

QString absolute(const QString& path)
{
    return QDir::cleanPath(QDir::current().absoluteFilePath(path));
}

/// What a program that was killed while it wrote has left in the project.
void removeRemains(const QString& project)
{
    const QString base = project + QLatin1Char('/');
    hv::removeAbandonedParts(project);
    hv::removeAbandonedParts(base + g_directoriesFolder);
    for (const ObjectKindInfo& info : objectKinds())
        hv::removeAbandonedParts(base + QLatin1String(info.folder));
}

QString shown(const QString& path)
{
    return QDir::toNativeSeparators(path);
}

} // namespace

HVProject::HVProject(QString path, QJsonObject settings)
    : m_path(std::move(path)), m_settings(std::move(settings)), m_store(m_path, m_changes)
{}

HVProject::~HVProject() = default;

std::unique_ptr<HVProject> HVProject::create(const QString& folder, const QString& name, QString* error)
{
    const QDir directory(absolute(folder));
    const QString path = directory.absolutePath();
    if (QFileInfo::exists(directory.filePath(projectFileName()))) {
        hv::fail(error, tr("There is a project in '%1' already.").arg(shown(path)));
        return nullptr;
    }
    const bool isNew = !QFileInfo::exists(path);
    if (!directory.mkpath(QStringLiteral("."))) {
        hv::fail(error, tr("Unable to create the folder '%1'.").arg(shown(path)));
        return nullptr;
    }
    const QJsonObject settings{{g_versionKey, QStringLiteral("%1.0").arg(g_formatMajor)},
                               {g_nameKey, name.isEmpty() ? directory.dirName() : name},
                               {g_horizontalUnitKey, hv::unitName(georef::Unit::Meters)},
                               {g_domainKey, hv::domainName(georef::Domain::Time)}};
    if (!hv::writeJsonFile(directory.filePath(projectFileName()), settings, error)) {
        if (isNew)
            directory.rmdir(QStringLiteral("."));
        return nullptr;
    }
    return std::unique_ptr<HVProject>(new HVProject(path, settings));
}

hv::Result<std::unique_ptr<HVProject>> HVProject::look(const QString& path)
{
    QString folder = absolute(path);
    const QFileInfo info(folder);
    if (info.isFile() && info.fileName() == projectFileName())
        folder = info.path();
    QString problem;
    QJsonObject settings;
    if (!QFileInfo::exists(folder))
        problem = tr("There is no folder '%1'.").arg(shown(folder));
    else if (!QFileInfo(folder).isDir())
        problem = tr("'%1' is not a project: it is not a folder.").arg(shown(folder));
    else if (!QFileInfo::exists(QDir(folder).filePath(projectFileName())))
        problem = tr("'%1' is not a project: it has no file '%2'.").arg(shown(folder), projectFileName());
    else
        hv::readJsonFile(QDir(folder).filePath(projectFileName()), g_formatMajor, settings, &problem);
    if (!problem.isEmpty())
        return hv::Failure(problem);
    return std::unique_ptr<HVProject>(new HVProject(folder, settings));
}

std::unique_ptr<HVProject> HVProject::open(const QString& path, QString* error)
{
    auto seen = look(path);
    if (!seen) {
        hv::fail(error, seen.failure().sentence);
        return nullptr;
    }
    std::unique_ptr<HVProject> project = *std::move(seen);
    removeRemains(project->path());
    hv::Trash(project->path()).tidy();
    return project;
}

QString HVProject::file() const
{
    return m_path + QLatin1Char('/') + projectFileName();
}

/// A setting got another value.
class HVProject::SettingChange final : public hv::Change
{
public:
    SettingChange(HVProject& project, QString key, QJsonValue before, QJsonValue after)
        : m_project(project), m_key(std::move(key)), m_before(std::move(before)), m_after(std::move(after))
    {}
    hv::Result<void> undo() override { return set(m_before); }
    hv::Result<void> redo() override { return set(m_after); }

private:
    hv::Result<void> set(const QJsonValue& value)
    {
        QString error;
        if (m_project.writeSetting(m_key, value, &error))
            return {};
        return hv::Failure(error);
    }

    HVProject& m_project;
    QString m_key;
    QJsonValue m_before;
    QJsonValue m_after;
};

bool HVProject::change(const QString& key, const QJsonValue& value, const QString& text, QString* error)
{
    const QJsonValue before = m_settings.value(key);
    if (!writeSetting(key, value, error))
        return false;
    if (before != value)
        m_changes.record(std::make_unique<SettingChange>(*this, key, before, value), text);
    return true;
}

bool HVProject::writeSetting(const QString& key, const QJsonValue& value, QString* error)
{
    // What somebody else has changed since then, in a text editor or by an update from version control, is kept.
    QJsonObject settings = m_settings;
    if (QFileInfo::exists(file()) && !hv::readJsonFile(file(), g_formatMajor, settings, error))
        return false;
    if (value.isUndefined())
        settings.remove(key);
    else
        settings.insert(key, value);
    if (!hv::writeJsonFile(file(), settings, error))
        return false;
    m_settings = settings;
    m_crs.reset();
    if (key == g_crsKey)
        Q_EMIT crsChanged();
    else
        Q_EMIT settingsChanged();
    return true;
}

QString HVProject::name() const
{
    const QString name = m_settings.value(g_nameKey).toString();
    return name.isEmpty() ? QDir(m_path).dirName() : name;
}

bool HVProject::setName(const QString& name, QString* error)
{
    return change(g_nameKey, name, tr("Project Name"), error);
}

georef::Crs HVProject::crs() const
{
    if (!m_crs) {
        const QString wkt = m_settings.value(g_crsKey).toString();
        QString error;
        m_crs = wkt.isEmpty() ? georef::Crs() : georef::Crs::fromWkt(wkt, &error);
        if (!error.isEmpty() && m_crs->isNull())
            HVEventBus::instance().sendMessage(
                MessageLevel::Error, tr("The reference system in '%1' cannot be read: %2").arg(shown(file()), error),
                true);
    }
    return *m_crs;
}

bool HVProject::setCrs(const georef::Crs& crs, QString* error)
{
    return change(g_crsKey, crs.isNull() ? QJsonValue(QJsonValue::Undefined) : QJsonValue(crs.toWkt()),
                  tr("Reference System"), error);
}

georef::Unit HVProject::horizontalUnit() const
{
    return hv::unitFromName(m_settings.value(g_horizontalUnitKey).toString()).value_or(georef::Unit::Meters);
}

bool HVProject::setHorizontalUnit(georef::Unit unit, QString* error)
{
    return change(g_horizontalUnitKey, hv::unitName(unit), tr("Horizontal Unit"), error);
}

georef::Unit HVProject::verticalUnit() const
{
    const auto usual = domain() == georef::Domain::Depth ? georef::Unit::Meters : georef::Unit::Milliseconds;
    return hv::unitFromName(m_settings.value(g_verticalUnitKey).toString()).value_or(usual);
}

bool HVProject::setVerticalUnit(georef::Unit unit, QString* error)
{
    return change(g_verticalUnitKey, hv::unitName(unit), tr("Vertical Unit"), error);
}

georef::Domain HVProject::domain() const
{
    return hv::domainFromName(m_settings.value(g_domainKey).toString()).value_or(georef::Domain::Time);
}

bool HVProject::setDomain(georef::Domain domain, QString* error)
{
    return change(g_domainKey, hv::domainName(domain), tr("Domain"), error);
}

QStringList HVProject::objectNames(ObjectKind kind)
{
    QStringList names;
    for (const hv::ObjectFile& object : m_store.list(kind))
        names << object.name;
    return names;
}

QStringList HVProject::objects(ObjectKind kind)
{
    const QString base = folder(kind) + QLatin1Char('/');
    QStringList paths;
    for (const hv::ObjectFile& object : m_store.list(kind))
        paths << base + object.fileName();
    return paths;
}

QStringList HVProject::objects()
{
    QStringList paths;
    for (const ObjectKindInfo& info : objectKinds())
        paths << objects(info.kind);
    return paths;
}

QStringList HVProject::objectsInDirectory(ObjectKind kind, const QString& directory)
{
    QHash<QString, QString> fileNames;
    for (const hv::ObjectFile& object : m_store.list(kind))
        fileNames.insert(object.name, object.fileName());
    QStringList names = directories(kind).objects(directory);
    std::sort(names.begin(), names.end(), hv::naturalLess);
    const QString base = folder(kind) + QLatin1Char('/');
    for (QString& name : names)
        name = base + fileNames.value(name, name + objectKindInfo(kind).suffix());
    return names;
}

QString HVProject::newFilename(ObjectKind kind, const QString& name, QString* error)
{
    if (!isObjectName(name)) {
        hv::fail(error, tr("'%1' cannot be the name of an object.").arg(name));
        return {};
    }
    if (const auto made = m_store.ensureFolder(kind); !made) {
        hv::fail(error, made.failure().sentence);
        return {};
    }
    QString path = filename(kind, name);
    for (int number = 2; QFileInfo::exists(path); ++number)
        path = filename(kind, QStringLiteral("%1 %2").arg(name, QString::number(number)));
    return path;
}

std::optional<ObjectKind> HVProject::kindOf(const QString& filename) const
{
    const QFileInfo info(filename);
    for (const ObjectKindInfo& kind : objectKinds())
        if (info.absolutePath() == folder(kind.kind) && !kind.objectName(info.fileName()).isEmpty())
            return kind.kind;
    return std::nullopt;
}

std::optional<hv::ObjectKey> HVProject::keyOf(const QString& filename) const
{
    const auto kind = kindOf(filename);
    return kind ? std::optional(hv::ObjectKey{*kind, QFileInfo(filename).completeBaseName()}) : std::nullopt;
}

bool HVProject::renameObject(ObjectKind kind, const QString& name, const QString& newName, QString* error)
{
    if (name == newName)
        return true;
    const hv::ChangeScope step(&m_changes, tr("Rename %1").arg(hv::shown({kind, name})));
    if (const auto renamed = m_store.rename({kind, name}, newName); !renamed)
        return hv::fail(error, renamed.failure().sentence);
    if (directories(kind).renameObject(name, newName, error))
        return true;
    static_cast<void>(m_store.rename({kind, newName}, name));
    return false;
}

bool HVProject::removeObject(ObjectKind kind, const QString& name, Removal removal, QString* error)
{
    const hv::ObjectKey key{kind, name};
    const hv::ChangeScope step(&m_changes, tr("Delete %1").arg(hv::shown(key)));
    const auto removed = removal == Removal::ToTrash ? m_store.remove(key) : m_store.removeForGood(key);
    if (!removed)
        return hv::fail(error, removed.failure().sentence);
    // Its place in a virtual directory stays, so that it is back where it was when it comes back from the trash.
    if (removal == Removal::Permanent)
        directories(kind).unfileObjects({name});
    return true;
}

HVVirtualDirectories& HVProject::directories(ObjectKind kind)
{
    auto& held = m_directories[kind];
    if (!held) {
        const QString path = QStringLiteral("%1/%2/%3.json")
                                 .arg(m_path, g_directoriesFolder, QLatin1String(objectKindInfo(kind).folder));
        held = std::make_unique<HVVirtualDirectories>(path, &m_changes);
        connect(held.get(), &HVVirtualDirectories::changed, this, [this, kind] {
            m_store.resetSoon(kind);
            Q_EMIT directoriesChanged(kind);
        });
    }
    return *held;
}

QStringList HVProject::directoryNames()
{
    QStringList names;
    for (const ObjectKindInfo& info : objectKinds())
        names << directories(info.kind).directories();
    names.removeDuplicates();
    return names;
}
