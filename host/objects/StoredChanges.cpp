#include "host/objects/StoredChanges.h"

#include "host/objects/ObjectStore.h"

#include <QDir>
#include <QFile>

#include <utility>

namespace hv {

StoredContent::StoredContent(ObjectStore& store, ObjectKey key, QString suffix, QString kept)
    : m_store(store), m_key(std::move(key)), m_suffix(std::move(suffix)), m_kept(std::move(kept)),
      m_keptStamp(FileStamp::of(m_kept))
{
    if (const auto object = m_store.held(m_key); object && object->m_stamp == m_keptStamp)
        m_keptValue = object->fileValue();
}

Result<void> StoredContent::exchange()
{
    const QString path = m_store.pathOf(m_key, m_suffix);
    if (auto exchanged = exchangeFiles(path, m_kept); !exchanged)
        return Failure(QObject::tr("The content of %1 cannot be changed back: %2.")
                           .arg(shown(m_key), exchanged.failure().sentence));
    // A snapshot stands for its file as long as nobody else has written into that.
    const FileStamp stamp = FileStamp::of(path);
    const FileStamp keptStamp = FileStamp::of(m_kept);
    ObjectValue value = stamp == m_keptStamp ? m_keptValue.get() : ObjectValue();
    m_keptValue = {};
    if (const auto object = m_store.held(m_key)) {
        if (object->m_stamp == keptStamp)
            m_keptValue = object->fileValue();
        object->replace(value, stamp);
    }
    m_keptStamp = keptStamp;
    m_store.noteContent(m_key, {});
    return {};
}

StoredPresence::StoredPresence(ObjectStore& store, ObjectKey key, QString suffix)
    : m_store(store), m_key(std::move(key)), m_suffix(std::move(suffix))
{}

StoredPresence::~StoredPresence()
{
    if (!m_isAway && !m_kept.isEmpty())
        Trash::removeNote(m_kept);
}

Result<void> StoredPresence::putAway()
{
    // Its place of the last time, unless somebody has emptied the trash.
    if (!m_kept.isEmpty() && moveAway(m_kept))
        return {};
    const Result<QString> place = m_store.m_trash.place(m_key.name + QLatin1Char('.') + m_suffix);
    if (!place)
        return place.failure();
    if (auto moved = moveAway(*place); !moved)
        return moved;
    Trash::writeNote(*place, m_key);
    return {};
}

Result<void> StoredPresence::moveAway(const QString& place)
{
    const QString path = m_store.pathOf(m_key, m_suffix);
    KeptValue value;
    if (const auto object = m_store.held(m_key))
        value = object->fileValue();
    if (auto moved = moveFile(path, place); !moved)
        return Failure(QObject::tr("Unable to move '%1' to the trash: %2.")
                           .arg(QDir::toNativeSeparators(path), moved.failure().sentence));
    m_isAway = true;
    m_kept = place;
    m_keptValue = value;
    m_keptStamp = FileStamp::of(m_kept);
    m_store.lookAtFile(m_key, m_suffix);
    return {};
}

Result<void> StoredPresence::bringBack()
{
    if (auto made = m_store.ensureFolder(m_key.kind); !made)
        return made;
    const QString path = m_store.pathOf(m_key, m_suffix);
    if (auto moved = moveFile(m_kept, path); !moved)
        return Failure(QObject::tr("%1 cannot be brought back: %2.").arg(shown(m_key), moved.failure().sentence));
    m_isAway = false;
    m_store.lookAtFile(m_key, m_suffix);
    if (const auto object = m_store.held(m_key); object && object->m_stamp == m_keptStamp && !object->m_value.get())
        object->m_value = m_keptValue;
    m_keptValue = {};
    return {};
}

Result<void> StoredName::undo()
{
    return m_store.moveObject({m_before.kind, m_newName}, m_before.name);
}

Result<void> StoredName::redo()
{
    return m_store.moveObject(m_before, m_newName);
}

} // namespace hv
