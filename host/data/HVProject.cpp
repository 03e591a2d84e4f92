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

hv::Result<std::unique_ptr<HVProject>> HVProject::create(const QString& folder, const QString& name)
{
    const QDir directory(absolute(folder));
    const QString path = directory.absolutePath();
    if (QFileInfo::exists(directory.filePath(projectFileName())))
        return hv::Failure(tr("There is a project in '%1' already.").arg(shown(path)));
    const bool isNew = !QFileInfo::exists(path);
    if (!directory.mkpath(QStringLiteral(".")))
        return hv::Failure(tr("Unable to create the folder '%1'.").arg(shown(path)));
    const QJsonObject settings{{g_versionKey, QStringLiteral("%1.0").arg(g_formatMajor)},
                               {g_nameKey, name.isEmpty() ? directory.dirName() : name},
                               {g_horizontalUnitKey, hv::unitName(georef::Unit::Meters)},
                               {g_domainKey, hv::domainName(georef::Domain::Time)}};
    if (const auto written = hv::writeJsonFile(directory.filePath(projectFileName()), settings); !written) {
        if (isNew)
            directory.rmdir(QStringLiteral("."));
        return written.failure();
    }
    return std::unique_ptr<HVProject>(new HVProject(path, settings));
}

hv::Result<std::unique_ptr<HVProject>> HVProject::look(const QString& path)
{
    QString folder = absolute(path);
    const QFileInfo info(folder);
    if (info.isFile() && info.fileName() == projectFileName())
        folder = info.path();
    if (!QFileInfo::exists(folder))
        return hv::Failure(tr("There is no folder '%1'.").arg(shown(folder)));
    if (!QFileInfo(folder).isDir())
        return hv::Failure(tr("'%1' is not a project: it is not a folder.").arg(shown(folder)));
    const QString file = QDir(folder).filePath(projectFileName());
    if (!QFileInfo::exists(file))
        return hv::Failure(tr("'%1' is not a project: it has no file '%2'.").arg(shown(folder), projectFileName()));
    const auto settings = hv::readJsonFile(file, g_formatMajor);
    if (!settings)
        return settings.failure();
    return std::unique_ptr<HVProject>(new HVProject(folder, *settings));
}

hv::Result<std::unique_ptr<HVProject>> HVProject::open(const QString& path)
{
    auto project = look(path);
    if (project) {
        removeRemains((*project)->path());
        hv::Trash((*project)->path()).tidy();
    }
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
    hv::Result<void> undo() override { return m_project.writeSetting(m_key, m_before); }
    hv::Result<void> redo() override { return m_project.writeSetting(m_key, m_after); }

private:
    HVProject& m_project;
    QString m_key;
    QJsonValue m_before;
    QJsonValue m_after;
};

hv::Result<void> HVProject::change(const QString& key, const QJsonValue& value, const QString& text)
{
    const QJsonValue before = m_settings.value(key);
    auto written = writeSetting(key, value);
    if (written && before != value)
        m_changes.record(std::make_unique<SettingChange>(*this, key, before, value), text);
    return written;
}

hv::Result<void> HVProject::writeSetting(const QString& key, const QJsonValue& value)
{
    // What somebody else has changed since then, in a text editor or by an update from version control, is kept.
    QJsonObject settings = m_settings;
    if (QFileInfo::exists(file())) {
        const auto read = hv::readJsonFile(file(), g_formatMajor);
        if (!read)
            return read.failure();
        settings = *read;
    }
    if (value.isUndefined())
        settings.remove(key);
    else
        settings.insert(key, value);
    if (auto written = hv::writeJsonFile(file(), settings); !written)
        return written;
    m_settings = settings;
    m_crs.reset();
    if (key == g_crsKey)
        Q_EMIT crsChanged();
    else
        Q_EMIT settingsChanged();
    return {};
}

QString HVProject::name() const
{
    const QString name = m_settings.value(g_nameKey).toString();
    return name.isEmpty() ? QDir(m_path).dirName() : name;
}

hv::Result<void> HVProject::setName(const QString& name)
{
    return change(g_nameKey, name, tr("Project Name"));
}

georef::Crs HVProject::crs() const
{
    if (!m_crs) {
        const QString wkt = m_settings.value(g_crsKey).toString();
        const auto read = wkt.isEmpty() ? georef::Crs() : georef::Crs::fromWkt(wkt);
        m_crs = georef::orNull(read);
        if (!read)
            HVEventBus::instance().sendMessage(
                MessageLevel::Error,
                tr("The reference system in '%1' cannot be read: %2").arg(shown(file()), read.failure().sentence),
                true);
    }
    return *m_crs;
}

hv::Result<void> HVProject::setCrs(const georef::Crs& crs)
{
    return change(g_crsKey, crs.isNull() ? QJsonValue(QJsonValue::Undefined) : QJsonValue(crs.toWkt()),
                  tr("Reference System"));
}

georef::Unit HVProject::horizontalUnit() const
{
    return hv::unitFromName(m_settings.value(g_horizontalUnitKey).toString()).value_or(georef::Unit::Meters);
}

hv::Result<void> HVProject::setHorizontalUnit(georef::Unit unit)
{
    return change(g_horizontalUnitKey, hv::unitName(unit), tr("Horizontal Unit"));
}

georef::Unit HVProject::verticalUnit() const
{
    const auto usual = domain() == georef::Domain::Depth ? georef::Unit::Meters : georef::Unit::Milliseconds;
    return hv::unitFromName(m_settings.value(g_verticalUnitKey).toString()).value_or(usual);
}

hv::Result<void> HVProject::setVerticalUnit(georef::Unit unit)
{
    return change(g_verticalUnitKey, hv::unitName(unit), tr("Vertical Unit"));
}

georef::Domain HVProject::domain() const
{
    return hv::domainFromName(m_settings.value(g_domainKey).toString()).value_or(georef::Domain::Time);
}

hv::Result<void> HVProject::setDomain(georef::Domain domain)
{
    return change(g_domainKey, hv::domainName(domain), tr("Domain"));
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

hv::Result<QString> HVProject::newFilename(ObjectKind kind, const QString& name)
{
    if (!isObjectName(name))
        return hv::Failure(tr("'%1' cannot be the name of an object.").arg(name));
    if (const auto made = m_store.ensureFolder(kind); !made)
        return made.failure();
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

hv::Result<void> HVProject::renameObject(ObjectKind kind, const QString& name, const QString& newName)
{
    if (name == newName)
        return {};
    const hv::ChangeScope step(&m_changes, tr("Rename %1").arg(hv::shown({kind, name})));
    if (auto renamed = m_store.rename({kind, name}, newName); !renamed)
        return renamed;
    auto filed = directories(kind).renameObject(name, newName);
    if (!filed)
        static_cast<void>(m_store.rename({kind, newName}, name));
    return filed;
}

hv::Result<void> HVProject::removeObject(ObjectKind kind, const QString& name, Removal removal)
{
    const hv::ObjectKey key{kind, name};
    const hv::ChangeScope step(&m_changes, tr("Delete %1").arg(hv::shown(key)));
    auto removed = removal == Removal::ToTrash ? m_store.remove(key) : m_store.removeForGood(key);
    // Its place in a virtual directory stays, so that it is back where it was when it comes back from the trash.
    if (removed && removal == Removal::Permanent)
        static_cast<void>(directories(kind).unfileObjects({name}));
    return removed;
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
