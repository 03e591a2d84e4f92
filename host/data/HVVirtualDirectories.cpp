#include "host/data/HVVirtualDirectories.h"

#include "host/formats/JsonFile.h"
#include "host/services/HVEventBus.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

#include <algorithm>

namespace {

constexpr int g_formatMajor = 1;
constexpr int g_quietMilliseconds = 300;
const QLatin1String g_directories("directories");
const QLatin1String g_name("name");
const QLatin1String g_parent("parent");
const QLatin1String g_objects("objects");

bool isDirectoryName(const QString& name)
{
    return !name.trimmed().isEmpty() && std::none_of(name.begin(), name.end(), [](QChar c) {
        return c.category() == QChar::Other_Control || c == QLatin1Char('/');
    });
}

} // namespace

HVVirtualDirectories::HVVirtualDirectories(QString path, QObject* parent) : QObject(parent), m_path(std::move(path))
{
    m_writeLater.setSingleShot(true);
    m_writeLater.setInterval(g_quietMilliseconds);
    connect(&m_writeLater, &QTimer::timeout, this, &HVVirtualDirectories::writeCollected);
}

HVVirtualDirectories::~HVVirtualDirectories()
{
    writeCollected();
}

void HVVirtualDirectories::writeCollected()
{
    QString error;
    if (!flush(&error))
        HVEventBus::instance().sendMessage(MessageLevel::Error, error, true);
}

bool HVVirtualDirectories::load(QString* error)
{
    if (m_dirty)
        return true;
    const QFileInfo info(m_path);
    const bool exists = info.exists();
    const QDateTime stamp = exists ? info.lastModified() : QDateTime();
    const qint64 size = exists ? info.size() : -1;
    if (!m_loaded || stamp != m_stamp || size != m_size) {
        m_loaded = true;
        m_stamp = stamp;
        m_size = size;
        m_problem.clear();
        m_state = {};
        QJsonObject object;
        if (exists && !hv::readJsonFile(m_path, g_formatMajor, object, &m_problem))
            HVEventBus::instance().sendMessage(MessageLevel::Error, m_problem, true);
        m_state = fromJson(object);
    }
    return m_problem.isEmpty() || hv::fail(error, m_problem);
}

HVVirtualDirectories::State HVVirtualDirectories::fromJson(QJsonObject object)
{
    State state;
    for (const QJsonValue& value : object.take(g_directories).toArray()) {
        QJsonObject entry = value.toObject();
        const QString name = entry.take(g_name).toString();
        const bool known = std::any_of(state.directories.begin(), state.directories.end(),
                                       [&](const Directory& directory) { return directory.name == name; });
        for (const QJsonValue& filed : entry.take(g_objects).toArray())
            state.directoryOf.insert(filed.toString(), name);
        const QString parent = entry.take(g_parent).toString();
        if (!known)
            state.directories.push_back({name, parent, entry});
    }
    state.unknown = object;
    // A parent that is not there, or a circle made by hand, must not hide a directory.
    for (Directory& directory : state.directories) {
        QString above = directory.parent;
        for (std::size_t depth = 0; !above.isEmpty(); ++depth) {
            const auto found = std::find_if(state.directories.begin(), state.directories.end(),
                                            [&](const Directory& each) { return each.name == above; });
            if (found == state.directories.end() || depth > state.directories.size()) {
                directory.parent.clear();
                break;
            }
            above = found->parent;
        }
    }
    return state;
}

QJsonObject HVVirtualDirectories::toJson() const
{
    QHash<QString, QStringList> objects;
    for (auto it = m_state.directoryOf.begin(); it != m_state.directoryOf.end(); ++it)
        objects[it.value()] << it.key();
    QJsonArray directories;
    for (const Directory& directory : m_state.directories) {
        QJsonObject entry = directory.unknown;
        entry.insert(g_name, directory.name);
        if (!directory.parent.isEmpty())
            entry.insert(g_parent, directory.parent);
        QStringList& names = objects[directory.name];
        std::sort(names.begin(), names.end());
        entry.insert(g_objects, QJsonArray::fromStringList(names));
        directories.append(entry);
    }
    QJsonObject object = m_state.unknown;
    if (!object.contains(QLatin1String("version")))
        object.insert(QLatin1String("version"), QStringLiteral("%1.0").arg(g_formatMajor));
    object.insert(g_directories, directories);
    return object;
}

bool HVVirtualDirectories::store(QString* error)
{
    const bool wasDirty = std::exchange(m_dirty, true);
    if (m_sinceWrite.isValid() && m_sinceWrite.elapsed() < g_quietMilliseconds) {
        if (!m_writeLater.isActive())
            m_writeLater.start();
        return true;
    }
    if (flush(error))
        return true;
    m_dirty = wasDirty;
    return false;
}

bool HVVirtualDirectories::flush(QString* error)
{
    if (!m_dirty)
        return true;
    m_writeLater.stop();
    m_sinceWrite.invalidate();
    const QFileInfo folder(QFileInfo(m_path).path());
    if (!QDir().mkpath(folder.filePath()))
        return hv::fail(error, QStringLiteral("Unable to create the folder '%1'.").arg(folder.filePath()));
    if (!hv::writeJsonFile(m_path, toJson(), error))
        return false;
    const QFileInfo written(m_path);
    m_stamp = written.lastModified();
    m_size = written.size();
    m_dirty = false;
    m_sinceWrite.start();
    return true;
}

bool HVVirtualDirectories::replace(State next, QString* error)
{
    std::swap(m_state, next);
    if (!store(error)) {
        std::swap(m_state, next);
        return false;
    }
    Q_EMIT changed();
    return true;
}

void HVVirtualDirectories::put(const Places& places)
{
    for (auto it = places.begin(); it != places.end(); ++it) {
        if (it.value().isEmpty())
            m_state.directoryOf.remove(it.key());
        else
            m_state.directoryOf.insert(it.key(), it.value());
    }
}

bool HVVirtualDirectories::place(const Places& places, QString* error)
{
    // Not by way of replace(): a copy of all places for each single object would make filing one by one quadratic.
    Places before;
    for (auto it = places.begin(); it != places.end(); ++it)
        before.insert(it.key(), m_state.directoryOf.value(it.key()));
    if (before == places)
        return true;
    put(places);
    if (!store(error)) {
        put(before);
        return false;
    }
    Q_EMIT changed();
    return true;
}

QStringList HVVirtualDirectories::directories()
{
    load();
    QStringList names;
    for (const Directory& directory : m_state.directories)
        names << directory.name;
    return names;
}

bool HVVirtualDirectories::contains(const QString& directory)
{
    load();
    return std::any_of(m_state.directories.begin(), m_state.directories.end(),
                       [&](const Directory& each) { return each.name == directory; });
}

QString HVVirtualDirectories::parentOf(const QString& directory)
{
    load();
    for (const Directory& each : m_state.directories)
        if (each.name == directory)
            return each.parent;
    return {};
}

QStringList HVVirtualDirectories::objects(const QString& directory)
{
    load();
    QStringList names;
    for (auto it = m_state.directoryOf.begin(); it != m_state.directoryOf.end(); ++it)
        if (it.value() == directory)
            names << it.key();
    return names;
}

QString HVVirtualDirectories::directoryOf(const QString& object)
{
    load();
    return m_state.directoryOf.value(object);
}

const QHash<QString, QString>& HVVirtualDirectories::places()
{
    load();
    return m_state.directoryOf;
}

bool HVVirtualDirectories::addDirectory(const QString& name, const QString& parent, QString* error)
{
    if (!load(error))
        return false;
    if (!isDirectoryName(name))
        return hv::fail(error, tr("'%1' cannot be the name of a folder.").arg(name));
    if (contains(name))
        return hv::fail(error, tr("There is a folder '%1' already.").arg(name));
    if (!parent.isEmpty() && !contains(parent))
        return hv::fail(error, tr("There is no folder '%1'.").arg(parent));
    State next = m_state;
    next.directories.push_back({name, parent, {}});
    return replace(std::move(next), error);
}

bool HVVirtualDirectories::removeDirectory(const QString& name, QString* error)
{
    if (!load(error))
        return false;
    if (!contains(name))
        return hv::fail(error, tr("There is no folder '%1'.").arg(name));
    const QString parent = parentOf(name);
    State next = m_state;
    auto& directories = next.directories;
    directories.erase(std::remove_if(directories.begin(), directories.end(),
                                     [&](const Directory& directory) { return directory.name == name; }),
                      directories.end());
    for (Directory& directory : directories)
        if (directory.parent == name)
            directory.parent = parent;
    for (auto it = next.directoryOf.begin(); it != next.directoryOf.end();) {
        if (it.value() != name) {
            ++it;
        } else if (parent.isEmpty()) {
            it = next.directoryOf.erase(it);
        } else {
            it.value() = parent;
            ++it;
        }
    }
    return replace(std::move(next), error);
}

bool HVVirtualDirectories::renameDirectory(const QString& name, const QString& newName, QString* error)
{
    if (!load(error))
        return false;
    if (!contains(name))
        return hv::fail(error, tr("There is no folder '%1'.").arg(name));
    if (!isDirectoryName(newName))
        return hv::fail(error, tr("'%1' cannot be the name of a folder.").arg(newName));
    if (name == newName)
        return true;
    if (contains(newName))
        return hv::fail(error, tr("There is a folder '%1' already.").arg(newName));
    State next = m_state;
    for (Directory& directory : next.directories) {
        if (directory.name == name)
            directory.name = newName;
        if (directory.parent == name)
            directory.parent = newName;
    }
    for (QString& directory : next.directoryOf)
        if (directory == name)
            directory = newName;
    return replace(std::move(next), error);
}

bool HVVirtualDirectories::fileObjects(const QStringList& objects, const QString& directory, QString* error)
{
    if (!load(error))
        return false;
    if (!contains(directory))
        return hv::fail(error, tr("There is no folder '%1'.").arg(directory));
    Places places;
    for (const QString& object : objects) {
        if (object.isEmpty())
            return hv::fail(error, tr("An object without a name cannot be filed."));
        places.insert(object, directory);
    }
    return place(places, error);
}

bool HVVirtualDirectories::unfileObjects(const QStringList& objects, QString* error)
{
    if (!load(error))
        return false;
    Places places;
    for (const QString& object : objects)
        places.insert(object, QString());
    return place(places, error);
}

bool HVVirtualDirectories::renameObject(const QString& object, const QString& newName, QString* error)
{
    if (!load(error))
        return false;
    const QString directory = m_state.directoryOf.value(object);
    return directory.isEmpty() || place({{object, QString()}, {newName, directory}}, error);
}
