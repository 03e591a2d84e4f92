#include "host/objects/DataObject.h"

#include "host/kinds/IObjectKind.h"
#include "host/objects/ObjectStore.h"

namespace hv {

DataObject::DataObject(ObjectStore& store, ObjectKey key, QString path)
    : m_store(&store), m_key(std::move(key)), m_path(std::move(path)), m_stamp(FileStamp::of(m_path))
{}

DataObject::~DataObject() = default;

Result<ObjectValue> DataObject::value()
{
    if (ObjectValue value = m_value.get())
        return value;
    if (!m_store)
        return Failure(tr("%1 cannot be read: its project is closed.").arg(shown(m_key)));
    // Before it is read: a change meanwhile is then seen as one.
    const FileStamp stamp = FileStamp::of(m_path);
    if (!stamp.exists)
        return Failure(tr("%1 is not there.").arg(shown(m_key)));
    Result<ObjectValue> read = objectKind(m_key.kind).read(m_path);
    m_stamp = stamp;
    if (read)
        keep(*read);
    return read;
}

void DataObject::setValue(ObjectValue value, const CellRegion& region)
{
    m_value = KeptValue(std::move(value), false);
    m_isModified = true;
    ++m_revision;
    if (m_store)
        m_store->noteContent(m_key, region);
}

void DataObject::keep(const ObjectValue& value)
{
    m_value = KeptValue(value, objectKind(m_key.kind).isLarge());
}

void DataObject::replace(const ObjectValue& value, const FileStamp& stamp)
{
    keep(value);
    m_stamp = stamp;
    m_isModified = false;
    ++m_revision;
}

} // namespace hv
