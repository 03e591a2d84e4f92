#include "host/objects/ObjectStore.h"

#include "host/formats/FileCopy.h"
#include "host/kinds/IObjectKind.h"
#include "host/objects/StoredChanges.h"

#include <QDir>
#include <QFileInfo>

namespace hv {

ObjectStore::ObjectStore(QString folder, ChangeLog& log, QObject* parent)
    : QObject(parent), m_folder(std::move(folder)), m_log(log), m_trash(m_folder)
{
    m_tellSoon.setSingleShot(true);
    m_tellSoon.setInterval(0);
    connect(&m_tellSoon, &QTimer::timeout, this, &ObjectStore::tellChanges);
    connect(&m_watch, &FolderWatch::happened, this, &ObjectStore::takeEvents);
}

ObjectStore::~ObjectStore() = default;

QString ObjectStore::folder(ObjectKind kind) const
{
    return m_folder + QLatin1Char('/') + QLatin1String(objectKindInfo(kind).folder);
}

// Listings ------------------------------------------------------------------------------------------------------------

ObjectListing& ObjectStore::listing(ObjectKind kind)
{
    takeEvents();
    Folder& folder = m_folders[kind];
    if (!folder.isRead)
        readFolder(kind);
    return folder.listing;
}

void ObjectStore::readFolder(ObjectKind kind)
{
    // Watched first, so that nothing is missed between; the project's folder tells of a kind's that comes later.
    if (m_projectWatch < 0)
        m_projectWatch = m_watch.add(m_folder);
    const QString path = this->folder(kind);
    Folder& folder = m_folders[kind];
    folder.watch = m_watch.add(path);
    folder.listing = ObjectListing::read(path, objectKindInfo(kind));
    folder.isRead = m_projectWatch >= 0 && (folder.watch >= 0 || !QFileInfo::exists(path));
    ++m_readings;
}

void ObjectStore::readAgain(ObjectKind kind)
{
    if (m_folders[kind].watch >= 0)
        m_watch.remove(m_folders[kind].watch);
    readFolder(kind);
    m_events.reset(kind);
    for (const auto& held : qAsConst(m_held))
        if (const auto object = held.lock(); object && object->key().kind == kind)
            lookAtObject(object->key(), path(object->key()));
    tellSoon();
}

void ObjectStore::refresh(std::optional<ObjectKind> kind)
{
    takeEvents();
    for (const ObjectKindInfo& info : objectKinds()) {
        if (kind && *kind != info.kind)
            continue;
        if (m_folders.count(info.kind))
            readAgain(info.kind);
        m_events.reset(info.kind);
    }
    tellSoon();
}

const std::vector<ObjectFile>& ObjectStore::list(ObjectKind kind)
{
    return listing(kind).files();
}

bool ObjectStore::contains(const ObjectKey& key)
{
    return listing(key.kind).contains(key.name);
}

QString ObjectStore::path(const ObjectKey& key)
{
    if (!isObjectName(key.name))
        return {};
    const auto folder = m_folders.find(key.kind);
    std::optional<ObjectFile> file;
    if (folder != m_folders.end() && folder->second.isRead) {
        takeEvents();
        file = folder->second.listing.find(key.name);
    } else {
        file = fileOf(key, {});
    }
    const QString stem = this->folder(key.kind) + QLatin1Char('/');
    return file ? stem + file->fileName() : stem + key.name + objectKindInfo(key.kind).suffix();
}

// What others do ------------------------------------------------------------------------------------------------------

void ObjectStore::takeEvents()
{
    const FolderWatch::Events taken = m_watch.take();
    if (taken.isIncomplete) {
        for (auto& [kind, folder] : m_folders)
            readAgain(kind);
        return;
    }
    for (const FolderWatch::Event& event : taken.events)
        for (const ObjectKindInfo& info : objectKinds()) {
            const auto folder = m_folders.find(info.kind);
            if (folder == m_folders.end())
                continue;
            const bool isFolder = event.watch == m_projectWatch && (event.name == QLatin1String(info.folder) ||
                                                                    event.before == QLatin1String(info.folder));
            // Unless it is the one that is watched already: made by ensureFolder().
            if (isFolder && (folder->second.watch < 0 || m_watch.add(this->folder(info.kind)) != folder->second.watch))
                readAgain(info.kind);
            else if (event.watch == folder->second.watch)
                look(info.kind, event);
        }
}

void ObjectStore::look(ObjectKind kind, const FolderWatch::Event& event)
{
    const ObjectKindInfo& info = objectKindInfo(kind);
    const ObjectKey after{kind, info.objectName(event.name)};
    const ObjectKey before{kind, info.objectName(event.before)};
    const auto suffixOf = [](const ObjectKey& key, const QString& fileName) {
        return fileName.mid(key.name.size() + 1);
    };
    ObjectListing& listing = m_folders[kind].listing;
    // The log tells what was; what counts is what is listed and what lies there now.
    const auto listed = listing.find(before.name);
    if (!before.name.isEmpty() && !after.name.isEmpty() && listed && listed->fileName() == event.before &&
        !listing.contains(after.name) && !fileOf(before, {})) {
        if (const auto file = fileOf(after, suffixOf(after, event.name)))
            enterRenamed(before, after, file->suffix);
    }
    if (!before.name.isEmpty())
        lookAtFile(before, suffixOf(before, event.before));
    if (!after.name.isEmpty())
        lookAtFile(after, suffixOf(after, event.name));
}

void ObjectStore::lookAtFile(const ObjectKey& key, const QString& suffix)
{
    ObjectListing& listing = m_folders[key.kind].listing;
    const auto listed = listing.find(key.name);
    const auto file = fileOf(key, suffix);
    if (file && file != listed)
        listing.put(*file);
    else if (!file && listed)
        listing.remove(key.name);
    if (file && !listed)
        m_events.added(key);
    else if (!file && listed)
        m_events.removed(key);
    tellSoon();
    lookAtObject(key, file ? folder(key.kind) + QLatin1Char('/') + file->fileName() : QString());
}

void ObjectStore::lookAtObject(const ObjectKey& key, const QString& path)
{
    const auto object = held(key);
    if (!object)
        return;
    if (!path.isEmpty())
        object->m_path = path;
    const FileStamp stamp = FileStamp::of(object->m_path);
    if (stamp == object->m_stamp)
        return;
    if (object->m_isModified) {
        object->m_stamp = stamp;
        return;
    }
    // What the file held stays to be seen while there is none.
    object->replace(stamp.exists ? ObjectValue() : object->m_value.get(), stamp);
    if (stamp.exists)
        noteContent(key, {});
}

/// Of the files that can be the object, the one that is it. `suffix` is one that may be there besides the usual ones.
std::optional<ObjectFile> ObjectStore::fileOf(const ObjectKey& key, const QString& suffix) const
{
    const ObjectKindInfo& info = objectKindInfo(key.kind);
    QStringList suffixes = QString::fromLatin1(info.suffixes).split(QLatin1Char(' '));
    for (int i = suffixes.size() - 1; i >= 0; --i)
        suffixes << suffixes[i].toUpper();
    if (!suffix.isEmpty() && !suffixes.contains(suffix))
        suffixes << suffix;
    if (const auto folder = m_folders.find(key.kind); folder != m_folders.end())
        if (const auto listed = folder->second.listing.find(key.name); listed && !suffixes.contains(listed->suffix))
            suffixes << listed->suffix;
    std::optional<ObjectFile> best;
    const QString stem = folder(key.kind) + QLatin1Char('/') + key.name + QLatin1Char('.');
    for (const QString& each : qAsConst(suffixes))
        if ((!best || info.prefers(each, best->suffix)) && FileStamp::of(stem + each).exists)
            best = ObjectFile{key.name, each};
    return best;
}

// Objects that are held -----------------------------------------------------------------------------------------------

std::shared_ptr<DataObject> ObjectStore::held(const ObjectKey& key) const
{
    return m_held.value(key).lock();
}

Result<std::shared_ptr<DataObject>> ObjectStore::open(const ObjectKey& key)
{
    const auto file = listing(key.kind).find(key.name);
    if (!file)
        return Failure(tr("%1 is not there.").arg(shown(key)));
    if (auto object = held(key))
        return object;
    // Forgotten with its last holder; its key may be another by then.
    const QPointer<ObjectStore> store(this);
    std::shared_ptr<DataObject> object(
        new DataObject(*this, key, folder(key.kind) + QLatin1Char('/') + file->fileName()), [store](DataObject* last) {
            if (store && store->m_held.value(last->key()).expired())
                store->m_held.remove(last->key());
            delete last;
        });
    m_held.insert(key, object);
    return object;
}

void ObjectStore::noteContent(const ObjectKey& key, const CellRegion& region)
{
    m_events.changed(key, region);
    tellSoon();
}

// Own changes ---------------------------------------------------------------------------------------------------------

Result<void> ObjectStore::ensureFolder(ObjectKind kind)
{
    const QString path = folder(kind);
    if (QFileInfo(path).isDir())
        return {};
    if (!QDir().mkpath(path))
        return Failure(tr("Unable to create the folder '%1'.").arg(QDir::toNativeSeparators(path)));
    if (const auto known = m_folders.find(kind); known != m_folders.end() && known->second.isRead)
        known->second.watch = m_watch.add(path);
    return {};
}

Result<void> ObjectStore::create(const ObjectKey& key, const ObjectValue& value, const QString& suffix)
{
    if (contains(key))
        return Failure(tr("There is an object '%1' already.").arg(key.name));
    return write(key, suffix.isEmpty() ? objectKindInfo(key.kind).suffix().mid(1) : suffix, value);
}

Result<void> ObjectStore::save(const ObjectKey& key, const ObjectValue& value)
{
    const auto file = listing(key.kind).find(key.name);
    return write(key, file ? file->suffix : objectKindInfo(key.kind).suffix().mid(1), value);
}

QString ObjectStore::pathOf(const ObjectKey& key, const QString& suffix) const
{
    return folder(key.kind) + QLatin1Char('/') + ObjectFile{key.name, suffix}.fileName();
}

Result<void> ObjectStore::write(const ObjectKey& key, const QString& suffix, const ObjectValue& value)
{
    if (!isObjectName(key.name))
        return Failure(tr("'%1' cannot be the name of an object.").arg(key.name));
    if (auto made = ensureFolder(key.kind); !made)
        return made;
    return FileStamp::of(pathOf(key, suffix)).exists ? replaceFile(key, suffix, value) : writeNew(key, suffix, value);
}

Result<void> ObjectStore::writeNew(const ObjectKey& key, const QString& suffix, const ObjectValue& value)
{
    if (auto written = objectKind(key.kind).write(value, pathOf(key, suffix)); !written)
        return written;
    m_folders[key.kind].listing.put({key.name, suffix});
    m_events.added(key);
    enterContent(key, suffix, value);
    m_log.record(std::make_unique<StoredPresence>(*this, key, suffix), tr("Create %1").arg(shown(key)));
    return {};
}

Result<void> ObjectStore::replaceFile(const ObjectKey& key, const QString& suffix, const ObjectValue& value)
{
    const QString path = pathOf(key, suffix);
    const QString text = tr("Change %1").arg(shown(key));
    // What nobody can take back is not worth keeping.
    if (!m_log.sink() || !m_log.keepable(QFileInfo(path).size(), shown(key))) {
        if (auto written = objectKind(key.kind).write(value, path); !written)
            return written;
        enterContent(key, suffix, value);
        m_log.recordWithoutUndo(text);
        return {};
    }
    // Written beside the old ones, then both change places.
    const Result<QString> place = m_trash.place(ObjectFile{key.name, suffix}.fileName());
    if (!place)
        return place.failure();
    if (auto written = objectKind(key.kind).write(value, *place); !written)
        return written;
    if (auto exchanged = exchangeFiles(path, *place); !exchanged) {
        QFile::remove(*place);
        return Failure(
            tr("Unable to write '%1': %2.").arg(QDir::toNativeSeparators(path), exchanged.failure().sentence), path);
    }
    auto change = std::make_unique<StoredContent>(*this, key, suffix, *place);
    enterContent(key, suffix, value);
    m_log.record(std::move(change), text);
    return {};
}

void ObjectStore::enterContent(const ObjectKey& key, const QString& suffix, const ObjectValue& value)
{
    if (const auto object = held(key)) {
        object->m_path = pathOf(key, suffix);
        object->replace(objectKind(key.kind).readsFile() ? ObjectValue() : value, FileStamp::of(object->m_path));
    }
    noteContent(key, {});
}

Result<void> ObjectStore::duplicate(const ObjectKey& key, const QString& newName)
{
    const ObjectKey copy{key.kind, newName};
    const auto file = listing(key.kind).find(key.name);
    if (!file)
        return Failure(tr("%1 is not there.").arg(shown(key)));
    if (!isObjectName(newName))
        return Failure(tr("'%1' cannot be the name of an object.").arg(newName));
    if (contains(copy))
        return Failure(tr("There is an object '%1' already.").arg(newName));
    if (auto copied = copyWholeFile(pathOf(key, file->suffix), pathOf(copy, file->suffix)); !copied)
        return copied;
    return adopt(copy);
}

Result<void> ObjectStore::adopt(const ObjectKey& key)
{
    const bool isListed = contains(key);
    const auto file = fileOf(key, {});
    if (!file)
        return Failure(tr("%1 is not there.").arg(shown(key)));
    m_folders[key.kind].listing.put(*file);
    if (!isListed)
        m_events.added(key);
    tellSoon();
    m_log.record(std::make_unique<StoredPresence>(*this, key, file->suffix), tr("Create %1").arg(shown(key)));
    return {};
}

void ObjectStore::changedInPlace(const ObjectKey& key, const CellRegion& region)
{
    if (const auto object = held(key))
        object->replace({}, FileStamp::of(object->m_path));
    noteContent(key, region);
}

Result<void> ObjectStore::rename(const ObjectKey& key, const QString& newName)
{
    if (key.name == newName)
        return {};
    if (!isObjectName(newName))
        return Failure(tr("'%1' cannot be the name of an object.").arg(newName));
    if (auto moved = moveObject(key, newName); !moved)
        return moved;
    m_log.record(std::make_unique<StoredName>(*this, key, newName), tr("Rename %1").arg(shown(key)));
    return {};
}

Result<void> ObjectStore::moveObject(const ObjectKey& key, const QString& newName)
{
    const ObjectKey after{key.kind, newName};
    const auto file = listing(key.kind).find(key.name);
    if (!file)
        return Failure(tr("%1 is not there.").arg(shown(key)));
    if (m_folders[key.kind].listing.contains(newName) || fileOf(after, file->suffix))
        return Failure(tr("There is an object '%1' already.").arg(newName));
    const QString path = pathOf(key, file->suffix);
    if (auto moved = moveFile(path, pathOf(after, file->suffix)); !moved)
        return Failure(tr("Unable to rename '%1': %2.").arg(QDir::toNativeSeparators(path), moved.failure().sentence));
    enterRenamed(key, after, file->suffix);
    return {};
}

void ObjectStore::enterRenamed(const ObjectKey& before, const ObjectKey& after, const QString& suffix)
{
    ObjectListing& listing = m_folders[before.kind].listing;
    listing.remove(before.name);
    listing.put({after.name, suffix});
    if (const auto object = held(before)) {
        m_held.remove(before);
        m_held.insert(after, object);
        object->m_key = after;
        object->m_path = folder(after.kind) + QLatin1Char('/') + ObjectFile{after.name, suffix}.fileName();
    }
    m_events.renamed(before, after);
    tellSoon();
}

Result<void> ObjectStore::remove(const ObjectKey& key)
{
    const auto file = listing(key.kind).find(key.name);
    if (!file)
        return Failure(tr("%1 is not there.").arg(shown(key)));
    auto change = std::make_unique<StoredPresence>(*this, key, file->suffix);
    if (auto removed = change->undo(); !removed)
        return removed;
    change->turnAround();
    m_log.record(std::move(change), tr("Delete %1").arg(shown(key)));
    return {};
}

Result<void> ObjectStore::removeForGood(const ObjectKey& key)
{
    const auto file = listing(key.kind).find(key.name);
    if (!file)
        return Failure(tr("%1 is not there.").arg(shown(key)));
    QFile removed(pathOf(key, file->suffix));
    if (!removed.remove())
        return Failure(
            tr("Unable to delete '%1': %2.").arg(QDir::toNativeSeparators(removed.fileName()), removed.errorString()));
    lookAtFile(key, file->suffix);
    m_log.recordWithoutUndo(tr("Delete %1").arg(shown(key)));
    return {};
}

// Telling -------------------------------------------------------------------------------------------------------------

void ObjectStore::tellSoon()
{
    if (!m_events.isEmpty() && !m_tellSoon.isActive())
        m_tellSoon.start();
}

void ObjectStore::resetSoon(ObjectKind kind)
{
    m_events.reset(kind);
    tellSoon();
}

void ObjectStore::tellChanges()
{
    takeEvents();
    m_tellSoon.stop();
    if (m_events.isEmpty())
        return;
    const ObjectEvents::Told told = m_events.take();
    // Whoever hears of it may close the project.
    const QPointer<ObjectStore> living(this);
    const auto tell = [&](const ObjectKey& key, ObjectChange::What what, const CellRegion& region = {}) {
        const auto object = living ? held(key) : nullptr;
        const ObjectChange change{key, what, object ? object->revision() : 0, region};
        if (object)
            Q_EMIT object->changed(change);
        if (living && (object || what == ObjectChange::What::Content))
            Q_EMIT changed(change);
    };
    for (const ObjectKind kind : told.resets)
        if (living)
            Q_EMIT listingReset(kind);
    for (const auto& [before, after] : told.renamed) {
        if (living)
            Q_EMIT renamed(before, after);
        tell(after, ObjectChange::What::Renamed);
    }
    for (const ObjectKey& key : told.removed) {
        if (living && !told.resets.count(key.kind))
            Q_EMIT removed(key);
        tell(key, ObjectChange::What::Removed);
    }
    for (const ObjectKey& key : told.added) {
        if (living && !told.resets.count(key.kind))
            Q_EMIT added(key);
        tell(key, ObjectChange::What::Restored);
    }
    for (const auto& [key, region] : told.changed)
        tell(key, ObjectChange::What::Content, region);
    if (living)
        Q_EMIT this->told();
}

} // namespace hv
