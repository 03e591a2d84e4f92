#pragma once

#include "host/data/HVVirtualDirectories.h"
#include "host/georef/Crs.h"
#include "host/georef/Enumerations.h"
#include "host/kinds/ObjectKind.h"

#include <QFileSystemWatcher>
#include <QJsonObject>
#include <QObject>
#include <QStringList>

#include <map>
#include <memory>
#include <optional>

/// host/data: the project and the objects that it holds.

/// An open project: a folder that can be copied, zipped and put under version control.
///
///     project.strativo           name, reference system (WKT 2), units, domain; see JsonFile.h
///     directories/<kind>.json    the virtual directories of one kind
///     <kind>/<name>.<suffix>     the objects; see objectKinds()
///
/// An object is a file in its kind's folder, nothing else: files that are added or removed by hand, or by another
/// program, are objects or are none any more. Its name is the file's complete base name. Folders are made when they are
/// first needed, so a project from which some were deleted still opens.
///
/// A function with an `error` parameter returns false, or an empty value, when it cannot do its work; it then has
/// changed nothing, and `error`, if given, is a sentence for the user.
///
/// Owned by HVProjectService; others hold a QPointer. GUI thread only.
class HVProject : public QObject
{
    Q_OBJECT

public:
    static QString projectFileName() { return QStringLiteral("project.strativo"); }

    /// A new project in `folder`, which is made when missing; objects that lie there already belong to it. Refused
    /// where there is a project. An empty name takes the folder's.
    static std::unique_ptr<HVProject> create(const QString& folder, const QString& name, QString* error);
    /// `path` is the folder or the project file in it.
    static std::unique_ptr<HVProject> open(const QString& path, QString* error);
    ~HVProject() override;

    /// The project's folder: absolute, without a trailing separator.
    QString path() const { return m_path; }

    QString name() const;
    bool setName(const QString& name, QString* error = nullptr);
    /// Null when there is none or its text cannot be read; the text in the file stays then.
    georef::Crs crs() const;
    bool hasCrs() const { return !crs().isNull(); }
    bool setCrs(const georef::Crs& crs, QString* error = nullptr);
    /// Unit of map coordinates. Metres unless stated.
    georef::Unit horizontalUnit() const;
    bool setHorizontalUnit(georef::Unit unit, QString* error = nullptr);
    /// Unit of the vertical axis. Unless stated milliseconds in time, metres in depth.
    georef::Unit verticalUnit() const;
    bool setVerticalUnit(georef::Unit unit, QString* error = nullptr);
    /// What the vertical axis measures. Time unless stated.
    georef::Domain domain() const;
    bool setDomain(georef::Domain domain, QString* error = nullptr);

    /// Absolute path of the kind's folder, which need not exist.
    QString folder(ObjectKind kind) const;
    /// Names without duplicates, in natural order.
    QStringList objectNames(ObjectKind kind) const;
    /// Absolute paths of the objects' files, in the order of their names; of all kinds in the order of objectKinds().
    QStringList objects(ObjectKind kind) const;
    QStringList objects() const;
    /// The files of the objects in a virtual directory, not those in directories within it, in the order of their
    /// names; of no directory: nothing. What was filed and has no file is listed with the one that it would have.
    QStringList objectsInDirectory(ObjectKind kind, const QString& directory);

    /// True for what can be the name of an object: not empty, no slash or control character, not too long for a file.
    static bool isObjectName(const QString& name);
    /// Where the object of this name lies, or would lie; empty for an impossible name.
    QString filename(ObjectKind kind, const QString& name) const;
    /// A path that no object has yet: of `name`, or of "name 2", "name 3"... The kind's folder exists afterwards.
    QString newFilename(ObjectKind kind, const QString& name, QString* error = nullptr);
    /// The kind of a file in one of the project's folders.
    std::optional<ObjectKind> kindOf(const QString& filename) const;

    bool renameObject(ObjectKind kind, const QString& name, const QString& newName, QString* error = nullptr);
    enum class Removal
    {
        ToTrash,
        Permanent,
    };
    bool removeObject(ObjectKind kind, const QString& name, Removal removal, QString* error = nullptr);

    HVVirtualDirectories& directories(ObjectKind kind);
    /// Names of all kinds' virtual directories, each once.
    QStringList directoryNames();

    /// From now on objectsChanged() is also emitted when somebody else adds or removes files.
    void watchFolders();
    /// For whoever wrote or removed object files itself: emits objectsChanged(); no kind means all.
    void refresh(std::optional<ObjectKind> kind = std::nullopt);

Q_SIGNALS:
    void objectsChanged(ObjectKind kind);
    void directoriesChanged(ObjectKind kind);
    /// renameObject() has done its work; objectsChanged() follows. Absolute paths of the object's file.
    void objectRenamed(const QString& before, const QString& after);
    void crsChanged();
    /// Name, units or domain.
    void settingsChanged();

private:
    HVProject(QString path, QJsonObject settings);

    QString file() const;
    bool change(const QString& key, const QJsonValue& value, QString* error);
    bool ensureFolder(ObjectKind kind, QString* error);
    void watchAll();

    QString m_path;
    QJsonObject m_settings;
    mutable std::optional<georef::Crs> m_crs; // made when first asked for: PROJ takes a moment to load
    std::map<ObjectKind, std::unique_ptr<HVVirtualDirectories>> m_directories;
    std::unique_ptr<QFileSystemWatcher> m_watcher;
};
