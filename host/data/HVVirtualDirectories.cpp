#include "host/data/HVVirtualDirectories.h"

#include "host/formats/JsonFile.h"
#include "host/services/HVEventBus.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace {

constexpr int g_formatMajor = 1;
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

/// What a name, with its member, indentation and line end, takes up in the file at most.
qint64 mostBytes(const QString& name)
{
    constexpr qint64 longestEscape = 6; // "\\u001f"
    constexpr qint64 aroundIt = 128;
    return longestEscape * name.size() + aroundIt;
}

} // namespace

HVVirtualDirectories::HVVirtualDirectories(const QString& path, QObject* parent)
    : QObject(parent), m_file(path, [this] { return QJsonDocument(toJson()).toJson(QJsonDocument::Indented); })
{}

bool HVVirtualDirectories::load(QString* error)
{
    const auto lock = m_file.lock();
    if (m_file.isForeign(lock)) {
        m_problem.clear();
        QJsonObject object;
        if (QFileInfo::exists(m_file.path()) && !hv::readJsonFile(m_file.path(), g_formatMajor, object, &m_problem))
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

bool HVVirtualDirectories::replace(State next, qint64 growth, QString* error)
{
    {
        const auto lock = m_file.lock();
        std::swap(m_state, next);
        if (!m_file.changed(lock, growth, error)) {
            std::swap(m_state, next);
            return false;
        }
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
    qint64 growth = 0;
    for (auto it = places.begin(); it != places.end(); ++it) {
        before.insert(it.key(), m_state.directoryOf.value(it.key()));
        growth += mostBytes(it.key());
    }
    if (before == places)
        return true;
    {
        const auto lock = m_file.lock();
        put(places);
        if (!m_file.changed(lock, growth, error)) {
            put(before);
            return false;
        }
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
    // Constant: the writing thread may be reading just now, and nothing may detach.
    for (auto it = m_state.directoryOf.constBegin(); it != m_state.directoryOf.constEnd(); ++it)
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
    return replace(std::move(next), mostBytes(name) + mostBytes(parent), error);
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
    const auto growth = static_cast<qint64>(directories.size()) * mostBytes(parent);
    return replace(std::move(next), growth, error);
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
    const auto growth = static_cast<qint64>(next.directories.size()) * mostBytes(newName);
    return replace(std::move(next), growth, error);
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
