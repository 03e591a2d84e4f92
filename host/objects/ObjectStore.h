#pragma once

#include "host/changes/ChangeLog.h"
#include "host/objects/DataObject.h"
#include "host/objects/FolderWatch.h"
#include "host/objects/ObjectEvents.h"
#include "host/objects/ObjectListing.h"
#include "host/objects/Trash.h"

#include <QTimer>

#include <map>
#include <optional>

namespace hv {

/// The objects of one project: lists, opens, saves, renames and removes them, and tells what has changed, whoever
/// changed it. An object is a file in its kind's folder, nothing else.
///
/// Listings are read once and then kept up to date: own changes are entered, those of others are taken from the
/// system's log of the folders before each answer, so that an answer is right also while no event loop runs. Folders
/// that cannot be watched are read for each answer.
///
/// Own changes are recorded in the project's log. What they replace or remove is put into the trash; taking a change
/// back renames it to where it was and brings back the snapshot that was held, without reading the file.
///
/// Changes are told once per turn of the event loop, each object once with what remains of all that happened to it.
/// By then the listing may be further on.
///
/// Owned by HVProject. GUI thread only.
class ObjectStore : public QObject
{
    Q_OBJECT

public:
    /// `folder` is the project's; `log`, not owned, records the changes.
    ObjectStore(QString folder, ChangeLog& log, QObject* parent = nullptr);
    ~ObjectStore() override;

    /// Absolute path of the kind's folder, which need not exist.
    QString folder(ObjectKind kind) const;
    /// In natural order of the names; valid until the next call of the store.
    const std::vector<ObjectFile>& list(ObjectKind kind);
    bool contains(const ObjectKey& key);
    /// Absolute path of the object's file; of one that is not there, where it would lie. Does not read the folder.
    QString path(const ObjectKey& key);
    /// The object, which stays alive as long as the result or any other of it is kept.
    Result<std::shared_ptr<DataObject>> open(const ObjectKey& key);

    /// A new object; refused when there is one. An empty suffix takes the kind's first.
    Result<void> create(const ObjectKey& key, const ObjectValue& value, const QString& suffix = {});
    /// Replaces what the object holds, or makes a new one.
    Result<void> save(const ObjectKey& key, const ObjectValue& value);
    /// A new object of the same content; refused when there is one.
    Result<void> duplicate(const ObjectKey& key, const QString& newName);
    /// An object whose file was made in its place by work that does not know of the store: told and recorded like one
    /// that was created here.
    Result<void> adopt(const ObjectKey& key);
    /// The object's file was written into, where it lies; `region` is what differs. Whoever writes records the change.
    void changedInPlace(const ObjectKey& key, const CellRegion& region);
    Result<void> rename(const ObjectKey& key, const QString& newName);
    /// Puts the object's file into the project's trash.
    Result<void> remove(const ObjectKey& key);
    /// Deletes the file, which nobody can take back.
    Result<void> removeForGood(const ObjectKey& key);

    /// Makes the kind's folder when it is missing.
    Result<void> ensureFolder(ObjectKind kind);
    /// Reads the folders anew, of all kinds when none is given: for folders that do not tell of their changes.
    void refresh(std::optional<ObjectKind> kind = std::nullopt);
    /// Has the kind told as one to be listed anew: what its objects are arranged in has changed.
    void resetSoon(ObjectKind kind);
    /// Tells now what has changed instead of in the next turn of the event loop.
    void tellChanges();
    /// How often a folder was read, for tests and benchmarks.
    int readings() const { return m_readings; }

Q_SIGNALS:
    /// So much has come or gone that the kind is to be listed anew; what was renamed is told all the same.
    void listingReset(ObjectKind kind);
    void added(const hv::ObjectKey& key);
    void removed(const hv::ObjectKey& key);
    void renamed(const hv::ObjectKey& before, const hv::ObjectKey& after);
    /// Of objects that somebody holds, all that happens to them; of others, what was saved.
    void changed(const hv::ObjectChange& change);
    /// All of the above has been told.
    void told();

private:
    friend class DataObject;
    friend class StoredContent;
    friend class StoredPresence;
    friend class StoredName;
    struct Folder
    {
        ObjectListing listing;
        bool isRead = false;
        int watch = -1;
    };

    ObjectListing& listing(ObjectKind kind);
    void readFolder(ObjectKind kind);
    void readAgain(ObjectKind kind);
    void takeEvents();
    void look(ObjectKind kind, const FolderWatch::Event& event);
    void lookAtFile(const ObjectKey& key, const QString& suffix);
    void lookAtObject(const ObjectKey& key, const QString& path);
    std::optional<ObjectFile> fileOf(const ObjectKey& key, const QString& suffix) const;
    std::shared_ptr<DataObject> held(const ObjectKey& key) const;

    QString pathOf(const ObjectKey& key, const QString& suffix) const;
    Result<void> write(const ObjectKey& key, const QString& suffix, const ObjectValue& value);
    Result<void> writeNew(const ObjectKey& key, const QString& suffix, const ObjectValue& value);
    Result<void> replaceFile(const ObjectKey& key, const QString& suffix, const ObjectValue& value);
    Result<void> moveObject(const ObjectKey& key, const QString& newName);
    void enterContent(const ObjectKey& key, const QString& suffix, const ObjectValue& value);
    void enterRenamed(const ObjectKey& before, const ObjectKey& after, const QString& suffix);
    void noteContent(const ObjectKey& key, const CellRegion& region);
    void tellSoon();

    QString m_folder;
    ChangeLog& m_log;
    Trash m_trash;
    std::map<ObjectKind, Folder> m_folders;
    FolderWatch m_watch;
    int m_projectWatch = -1;
    QHash<ObjectKey, std::weak_ptr<DataObject>> m_held;
    ObjectEvents m_events;
    QTimer m_tellSoon; // a timer, since other posted events are delivered in the middle of scripts
    int m_readings = 0;
};

} // namespace hv
