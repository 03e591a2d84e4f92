#pragma once

#include "host/data/CollectingWriter.h"

#include <QHash>
#include <QJsonObject>
#include <QMap>
#include <QObject>
#include <QStringList>

#include <vector>

namespace hv {
class ChangeLog;
}

/// The number under which the application's directory service files the folders of a project's objects. The others
/// (1 to 7) were directories on disk.
constexpr int g_virtualDirectoryCategory = 8;

/// The virtual directories of one kind of object: named folders into which objects are filed without moving their
/// files. They form a tree; a name is used once per kind. An object is in one directory at most and is known by its
/// name, whether its file exists or not, so a file that comes back is where it was.
///
/// Kept in one text file, read at the first use and again when somebody else has changed it. A change is written at
/// once; changes in quick succession (a script that files objects one by one) are collected, see CollectingWriter.
/// GUI thread only.
class HVVirtualDirectories : public QObject
{
    Q_OBJECT

public:
    /// `log`, not owned, records the changes; null for none.
    explicit HVVirtualDirectories(const QString& path, hv::ChangeLog* log = nullptr, QObject* parent = nullptr);

    /// Names in the order of creation.
    QStringList directories();
    bool contains(const QString& directory);
    /// Empty for a top-level directory.
    QString parentOf(const QString& directory);
    /// Names of the objects filed in the directory, in no order; of no directory: nothing.
    QStringList objects(const QString& directory);
    /// Empty when the object is in none.
    QString directoryOf(const QString& object);
    /// The directory of each object that is in one; valid until the next call.
    const QHash<QString, QString>& places();

    // Each of these fails, and changes nothing, when it cannot be done: the directory is
    // there already or is not there, the name is empty or holds control characters or a slash, the file cannot be
    // read or written.

    hv::Result<void> addDirectory(const QString& name, const QString& parent);
    /// What is in the directory moves up: to its parent, or out of all directories.
    hv::Result<void> removeDirectory(const QString& name);
    hv::Result<void> renameDirectory(const QString& name, const QString& newName);
    hv::Result<void> fileObjects(const QStringList& objects, const QString& directory);
    /// Objects that are in no directory are passed over.
    hv::Result<void> unfileObjects(const QStringList& objects);
    /// The object's new name takes over its place.
    hv::Result<void> renameObject(const QString& object, const QString& newName);

    /// Writes what is not yet written.
    hv::Result<void> flush() { return m_file.flush(); }

Q_SIGNALS:
    void changed();

private:
    struct Directory
    {
        QString name;
        QString parent;
        QJsonObject unknown; // members of a later version
        friend bool operator==(const Directory&, const Directory&) = default;
    };
    struct State
    {
        std::vector<Directory> directories;
        QHash<QString, QString> directoryOf; // object -> directory
        QJsonObject unknown;
        friend bool operator==(const State&, const State&) = default;
    };
    using Places = QMap<QString, QString>;

    hv::Result<void> load();
    /// Before reading: load() tells the user itself.
    void refresh() { static_cast<void>(load()); }
    class PlacesChange;
    class StateChange;
    hv::Result<void> change(State next, const QString& text);
    hv::Result<void> replace(State next);
    hv::Result<void> change(const Places& places, const QString& text);
    hv::Result<void> place(const Places& places);
    void put(const Places& places);
    static qint64 mostBytes(const State& state);
    QJsonObject toJson() const;
    static State fromJson(QJsonObject object);

    hv::ChangeLog* m_log;
    State m_state;     // changed with the writer's lock held, which reads it on its thread
    QString m_problem; // why the file cannot be read; nothing is written then
    hv::CollectingWriter m_file;
};
