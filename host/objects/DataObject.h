#pragma once

#include "host/core/Result.h"
#include "host/kinds/ObjectValue.h"
#include "host/objects/FileStamp.h"
#include "host/objects/ObjectChange.h"

#include <QObject>
#include <QPointer>

#include <memory>

namespace hv {

class ObjectStore;

/// host/objects: the objects of a project, alive: who each is, what it holds, and who hears of its changes.

/// An object of a project: the one instance of its key while somebody holds it, given by ObjectStore::open().
///
/// What it holds is a snapshot, replaced as a whole and only on the GUI thread; value() gives the present one, which
/// any thread may read for as long as it keeps it. The object itself belongs to the GUI thread.
///
/// It outlives its file, and comes back to it when a file of the same name does; it outlives its project too, and then
/// has what it had.
class DataObject : public QObject
{
    Q_OBJECT

public:
    ~DataObject() override;

    /// Another one once it is renamed.
    const ObjectKey& key() const { return m_key; }
    /// Absolute path of its file, or of where its file was.
    QString path() const { return m_path; }
    bool exists() const { return m_stamp.exists; }
    /// Counts the changes of its content, from 1.
    quint64 revision() const { return m_revision; }

    /// The present snapshot, read from the file when it is first asked for; of kinds with large values also when nobody
    /// has kept the last one. A failure says why it cannot be read.
    Result<ObjectValue> value();
    /// The same as a `T`; a failure also when the kind has other values.
    template <class T>
    Result<std::shared_ptr<const T>> valueAs();

    /// Shows `value` to everybody who looks at the object, and leaves the file as it is: the object is modified until
    /// it is saved. `region` is what differs.
    void setValue(ObjectValue value, const CellRegion& region = {});
    bool isModified() const { return m_isModified; }

Q_SIGNALS:
    /// Told by the store, once per turn of the event loop.
    void changed(const hv::ObjectChange& change);

private:
    friend class ObjectStore;
    friend class StoredContent;
    friend class StoredPresence;
    DataObject(ObjectStore& store, ObjectKey key, QString path);
    /// The file is another, or gone, or there again. `value` may be nothing: then it is read when it is asked for.
    void replace(const ObjectValue& value, const FileStamp& stamp);
    /// `value` is what the file holds.
    void keep(const ObjectValue& value);
    /// What the file holds, as far as that is known.
    KeptValue fileValue() const { return m_isModified ? KeptValue() : m_value; }

    QPointer<ObjectStore> m_store;
    ObjectKey m_key;
    QString m_path;
    quint64 m_revision = 1;
    KeptValue m_value;
    FileStamp m_stamp; // of what m_value was read from or written to
    bool m_isModified = false;
};

template <class T>
Result<std::shared_ptr<const T>> DataObject::valueAs()
{
    const Result<ObjectValue> held = value();
    if (!held)
        return held.failure();
    if (auto typed = held->template as<T>())
        return typed;
    return Failure(QStringLiteral("%1 holds something else.").arg(shown(m_key)));
}

} // namespace hv
