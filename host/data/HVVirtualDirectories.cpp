#include "host/data/HVVirtualDirectories.h"

#include "host/changes/ChangeLog.h"
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

HVVirtualDirectories::HVVirtualDirectories(const QString& path, hv::ChangeLog* log, QObject* parent)
    : QObject(parent), m_log(log),
      m_file(path, [this] { return QJsonDocument(toJson()).toJson(QJsonDocument::Indented); })
{}

hv::Result<void> HVVirtualDirectories::load()
{
    const auto lock = m_file.lock();
    if (m_file.isForeign(lock)) {
        m_problem.clear();
        QJsonObject object;
        if (QFileInfo::exists(m_file.path())) {
            if (auto read = hv::readJsonFile(m_file.path(), g_formatMajor)) {
                object = *read;
            } else {
                m_problem = read.failure().sentence;
                HVEventBus::instance().sendMessage(MessageLevel::Error, m_problem, true);
            }
        }
        m_state = fromJson(object);
    }
    return m_problem.isEmpty() ? hv::Result<void>() : hv::Failure(m_problem);
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

/// Directories came, went or got another name; both states share what they have in common.
class HVVirtualDirectories::StateChange final : public hv::Change
{
public:
    StateChange(HVVirtualDirectories& directories, State before)
        : m_directories(directories), m_before(std::move(before)), m_after(directories.m_state)
    {}
    hv::Result<void> undo() override { return exchange(m_after, m_before); }
    hv::Result<void> redo() override { return exchange(m_before, m_after); }

private:
    hv::Result<void> exchange(const State& now, const State& next)
    {
        if (auto loaded = m_directories.load(); !loaded)
            return loaded;
        if (m_directories.m_state != now)
            return hv::Failure(tr("Somebody else has changed the folders."));
        return m_directories.replace(next);
    }

    HVVirtualDirectories& m_directories;
    State m_before;
    State m_after;
};

/// Objects got other places.
class HVVirtualDirectories::PlacesChange final : public hv::Change
{
public:
    PlacesChange(HVVirtualDirectories& directories, Places before, Places after)
        : m_directories(directories), m_before(std::move(before)), m_after(std::move(after))
    {}
    hv::Result<void> undo() override { return set(m_before); }
    hv::Result<void> redo() override { return set(m_after); }

private:
    hv::Result<void> set(const Places& places)
    {
        auto loaded = m_directories.load();
        return loaded ? m_directories.place(places) : loaded;
    }

    HVVirtualDirectories& m_directories;
    Places m_before;
    Places m_after;
};

hv::Result<void> HVVirtualDirectories::change(State next, const QString& text)
{
    State before = m_state;
    auto replaced = replace(std::move(next));
    if (replaced && m_log)
        m_log->record(std::make_unique<StateChange>(*this, std::move(before)), text);
    return replaced;
}

hv::Result<void> HVVirtualDirectories::change(const Places& places, const QString& text)
{
    Places before;
    for (auto it = places.begin(); it != places.end(); ++it)
        before.insert(it.key(), m_state.directoryOf.value(it.key()));
    if (before == places)
        return {};
    auto placed = place(places);
    if (placed && m_log)
        m_log->record(std::make_unique<PlacesChange>(*this, std::move(before), places), text);
    return placed;
}

qint64 HVVirtualDirectories::mostBytes(const State& state)
{
    qint64 bytes = 0;
    for (const Directory& directory : state.directories)
        bytes += ::mostBytes(directory.name) + ::mostBytes(directory.parent);
    for (auto it = state.directoryOf.constBegin(); it != state.directoryOf.constEnd(); ++it)
        bytes += ::mostBytes(it.key());
    return bytes;
}

hv::Result<void> HVVirtualDirectories::replace(State next)
{
    const qint64 growth = std::max<qint64>(0, mostBytes(next) - mostBytes(m_state));
    {
        const auto lock = m_file.lock();
        std::swap(m_state, next);
        if (auto written = m_file.changed(lock, growth); !written) {
            std::swap(m_state, next);
            return written;
        }
    }
    Q_EMIT changed();
    return {};
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

hv::Result<void> HVVirtualDirectories::place(const Places& places)
{
    // Not by way of replace(): a copy of all places for each single object would make filing one by one quadratic.
    Places before;
    qint64 growth = 0;
    for (auto it = places.begin(); it != places.end(); ++it) {
        before.insert(it.key(), m_state.directoryOf.value(it.key()));
        growth += ::mostBytes(it.key());
    }
    if (before == places)
        return {};
    {
        const auto lock = m_file.lock();
        put(places);
        if (auto written = m_file.changed(lock, growth); !written) {
            put(before);
            return written;
        }
    }
    Q_EMIT changed();
    return {};
}

QStringList HVVirtualDirectories::directories()
{
    refresh();
    QStringList names;
    for (const Directory& directory : m_state.directories)
        names << directory.name;
    return names;
}

bool HVVirtualDirectories::contains(const QString& directory)
{
    refresh();
    return std::any_of(m_state.directories.begin(), m_state.directories.end(),
                       [&](const Directory& each) { return each.name == directory; });
}

QString HVVirtualDirectories::parentOf(const QString& directory)
{
    refresh();
    for (const Directory& each : m_state.directories)
        if (each.name == directory)
            return each.parent;
    return {};
}

QStringList HVVirtualDirectories::objects(const QString& directory)
{
    refresh();
    QStringList names;
    // Constant: the writing thread may be reading just now, and nothing may detach.
    for (auto it = m_state.directoryOf.constBegin(); it != m_state.directoryOf.constEnd(); ++it)
        if (it.value() == directory)
            names << it.key();
    return names;
}

QString HVVirtualDirectories::directoryOf(const QString& object)
{
    refresh();
    return m_state.directoryOf.value(object);
}

const QHash<QString, QString>& HVVirtualDirectories::places()
{
    refresh();
    return m_state.directoryOf;
}

hv::Result<void> HVVirtualDirectories::addDirectory(const QString& name, const QString& parent)
{
    if (auto loaded = load(); !loaded)
        return loaded;
    if (!isDirectoryName(name))
        return hv::Failure(tr("'%1' cannot be the name of a folder.").arg(name));
    if (contains(name))
        return hv::Failure(tr("There is a folder '%1' already.").arg(name));
    if (!parent.isEmpty() && !contains(parent))
        return hv::Failure(tr("There is no folder '%1'.").arg(parent));
    State next = m_state;
    next.directories.push_back({name, parent, {}});
    return change(std::move(next), tr("New Folder '%1'").arg(name));
}

hv::Result<void> HVVirtualDirectories::removeDirectory(const QString& name)
{
    if (auto loaded = load(); !loaded)
        return loaded;
    if (!contains(name))
        return hv::Failure(tr("There is no folder '%1'.").arg(name));
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
    return change(std::move(next), tr("Remove Folder '%1'").arg(name));
}

hv::Result<void> HVVirtualDirectories::renameDirectory(const QString& name, const QString& newName)
{
    if (auto loaded = load(); !loaded)
        return loaded;
    if (!contains(name))
        return hv::Failure(tr("There is no folder '%1'.").arg(name));
    if (!isDirectoryName(newName))
        return hv::Failure(tr("'%1' cannot be the name of a folder.").arg(newName));
    if (name == newName)
        return {};
    if (contains(newName))
        return hv::Failure(tr("There is a folder '%1' already.").arg(newName));
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
    return change(std::move(next), tr("Rename Folder '%1'").arg(name));
}

hv::Result<void> HVVirtualDirectories::fileObjects(const QStringList& objects, const QString& directory)
{
    if (auto loaded = load(); !loaded)
        return loaded;
    if (!contains(directory))
        return hv::Failure(tr("There is no folder '%1'.").arg(directory));
    Places places;
    for (const QString& object : objects) {
        if (object.isEmpty())
            return hv::Failure(tr("An object without a name cannot be filed."));
        places.insert(object, directory);
    }
    return change(places, tr("Move to Folder '%1'").arg(directory));
}

hv::Result<void> HVVirtualDirectories::unfileObjects(const QStringList& objects)
{
    if (auto loaded = load(); !loaded)
        return loaded;
    Places places;
    for (const QString& object : objects)
        places.insert(object, QString());
    return change(places, tr("Take out of Folder"));
}

hv::Result<void> HVVirtualDirectories::renameObject(const QString& object, const QString& newName)
{
    if (auto loaded = load(); !loaded)
        return loaded;
    const QString directory = m_state.directoryOf.value(object);
    if (directory.isEmpty())
        return {};
    return change(Places{{object, QString()}, {newName, directory}}, tr("Rename '%1'").arg(object));
}
