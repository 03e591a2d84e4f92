#pragma once

#include "host/changes/Change.h"
#include "host/kinds/ObjectValue.h"
#include "host/objects/FileStamp.h"
#include "host/objects/ObjectKey.h"

namespace hv {

class ObjectStore;

// What the store records of its own changes. None is used after the store has gone: the log goes with the project.

/// An object got another content; the other one is kept in the trash and changes places with it.
class StoredContent final : public Change
{
public:
    /// After the exchange and before the object takes up its new value.
    StoredContent(ObjectStore& store, ObjectKey key, QString suffix, QString kept);
    Result<void> undo() override { return exchange(); }
    Result<void> redo() override { return exchange(); }

private:
    Result<void> exchange();

    ObjectStore& m_store;
    ObjectKey m_key;
    QString m_suffix;
    QString m_kept; // the file with the other content
    FileStamp m_keptStamp;
    KeptValue m_keptValue; // what was held of it, if anything
};

/// An object came, or went after turnAround().
class StoredPresence final : public Change
{
public:
    /// Of an object that is there.
    StoredPresence(ObjectStore& store, ObjectKey key, QString suffix);
    ~StoredPresence() override;
    StoredPresence(const StoredPresence&) = delete;
    StoredPresence& operator=(const StoredPresence&) = delete;
    Result<void> undo() override { return m_isRemoval ? bringBack() : putAway(); }
    Result<void> redo() override { return m_isRemoval ? putAway() : bringBack(); }
    void turnAround() { m_isRemoval = !m_isRemoval; }

private:
    Result<void> putAway();
    Result<void> moveAway(const QString& place);
    Result<void> bringBack();

    ObjectStore& m_store;
    ObjectKey m_key;
    QString m_suffix;
    bool m_isRemoval = false;
    bool m_isAway = false;
    /// Where it lies in the trash while it is away. The place and the note there stay its own as long as this lives: a
    /// file system takes seconds to give out thousands of files anew that were removed just before.
    QString m_kept;
    FileStamp m_keptStamp;
    KeptValue m_keptValue;
};

/// An object got another name.
class StoredName final : public Change
{
public:
    StoredName(ObjectStore& store, ObjectKey before, QString newName)
        : m_store(store), m_before(std::move(before)), m_newName(std::move(newName))
    {}
    Result<void> undo() override;
    Result<void> redo() override;

private:
    ObjectStore& m_store;
    ObjectKey m_before;
    QString m_newName;
};

} // namespace hv
