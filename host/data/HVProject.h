#pragma once

#include "host/data/HVVirtualDirectories.h"
#include "host/georef/Crs.h"
#include "host/georef/Enumerations.h"
#include "host/objects/ObjectStore.h"

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
    static hv::Result<std::unique_ptr<HVProject>> create(const QString& folder, const QString& name);
    /// `path` is the folder or the project file in it.
    static hv::Result<std::unique_ptr<HVProject>> open(const QString& path);
    /// The same for whoever only wants to see it: clears nothing that killed programs have left, and no trash.
    static hv::Result<std::unique_ptr<HVProject>> look(const QString& path);
    ~HVProject() override;

    /// The project's folder: absolute, without a trailing separator.
    QString path() const { return m_path; }

    QString name() const;
    hv::Result<void> setName(const QString& name);
    /// Null when there is none or its text cannot be read; the text in the file stays then.
    georef::Crs crs() const;
    bool hasCrs() const { return !crs().isNull(); }
    hv::Result<void> setCrs(const georef::Crs& crs);
    /// Unit of map coordinates. Metres unless stated.
    georef::Unit horizontalUnit() const;
    hv::Result<void> setHorizontalUnit(georef::Unit unit);
    /// Unit of the vertical axis. Unless stated milliseconds in time, metres in depth.
    georef::Unit verticalUnit() const;
    hv::Result<void> setVerticalUnit(georef::Unit unit);
    /// What the vertical axis measures. Time unless stated.
    georef::Domain domain() const;
    hv::Result<void> setDomain(georef::Domain domain);

    /// Absolute path of the kind's folder, which need not exist.
    QString folder(ObjectKind kind) const { return m_store.folder(kind); }
    /// What was done to the project, and how it is taken back.
    hv::ChangeLog& changes() { return m_changes; }
    /// Who the objects are, what they hold and who hears of their changes.
    hv::ObjectStore& store() { return m_store; }
    /// Names without duplicates, in natural order.
    QStringList objectNames(ObjectKind kind);
    /// Absolute paths of the objects' files, in the order of their names; of all kinds in the order of objectKinds().
    QStringList objects(ObjectKind kind);
    QStringList objects();
    /// The files of the objects in a virtual directory, not those in directories within it, in the order of their
    /// names; of no directory: nothing. What was filed and has no file is listed with the one that it would have.
    QStringList objectsInDirectory(ObjectKind kind, const QString& directory);

    /// True for what can be the name of an object: not empty, no slash or control character, not too long for a file.
    static bool isObjectName(const QString& name) { return hv::isObjectName(name); }
    /// Where the object of this name lies, or would lie; empty for an impossible name.
    QString filename(ObjectKind kind, const QString& name) { return m_store.path({kind, name}); }
    /// A path that no object has yet: of `name`, or of "name 2", "name 3"... The kind's folder exists afterwards.
    hv::Result<QString> newFilename(ObjectKind kind, const QString& name);
    /// The kind of a file in one of the project's folders.
    std::optional<ObjectKind> kindOf(const QString& filename) const;
    /// The object that such a file is, or would be.
    std::optional<hv::ObjectKey> keyOf(const QString& filename) const;

    hv::Result<void> renameObject(ObjectKind kind, const QString& name, const QString& newName);
    enum class Removal
    {
        ToTrash,   ///< the project's own, from which undo brings it back to where it was
        Permanent, ///< out of its virtual directory too
    };
    hv::Result<void> removeObject(ObjectKind kind, const QString& name, Removal removal);

    HVVirtualDirectories& directories(ObjectKind kind);
    /// Names of all kinds' virtual directories, each once.
    QStringList directoryNames();

    /// Reads the folder of the kind anew, those of all without one; see ObjectStore::refresh().
    void refresh(std::optional<ObjectKind> kind = std::nullopt) { m_store.refresh(kind); }

Q_SIGNALS:
    /// At once; the store tells the kind as one to be listed anew.
    void directoriesChanged(ObjectKind kind);
    void crsChanged();
    /// Name, units or domain.
    void settingsChanged();

private:
    HVProject(QString path, QJsonObject settings);

    QString file() const;
    class SettingChange;
    hv::Result<void> change(const QString& key, const QJsonValue& value, const QString& text);
    hv::Result<void> writeSetting(const QString& key, const QJsonValue& value);
    QString m_path;
    QJsonObject m_settings;
    mutable std::optional<georef::Crs> m_crs; // made when first asked for: PROJ takes a moment to load
    std::map<ObjectKind, std::unique_ptr<HVVirtualDirectories>> m_directories;
    hv::ChangeLog m_changes;
    hv::ObjectStore m_store;
};
