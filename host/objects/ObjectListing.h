#pragma once

#include "host/kinds/ObjectKind.h"

#include <QHash>
#include <QString>

#include <optional>
#include <vector>

namespace hv {

/// The file of an object, without its folder.
struct ObjectFile
{
    QString name;
    QString suffix; ///< as the file has it, without the point

    QString fileName() const { return name + QLatin1Char('.') + suffix; }
    friend bool operator==(const ObjectFile& a, const ObjectFile& b)
    {
        return a.name == b.name && a.suffix == b.suffix;
    }
};

/// The objects of one kind: in natural order of their names, one per name. A value.
///
/// Putting in and taking out cost the same however many there are; files() brings what has come and gone into order.
class ObjectListing
{
public:
    /// What lies in a folder. Of several suffixes of one name the kind's first wins. Folders and files whose names are
    /// not text are no objects; a folder that cannot be read has none. A hundred thousand take less than 100 ms.
    static ObjectListing read(const QString& folder, const ObjectKindInfo& info);

    /// Valid until the next change.
    const std::vector<ObjectFile>& files() const;
    std::optional<ObjectFile> find(const QString& name) const;
    bool contains(const QString& name) const { return find(name).has_value(); }

    /// Replaces one of the same name.
    void put(const ObjectFile& file) { m_pending.insert(file.name, file.suffix); }
    void remove(const QString& name) { m_pending.insert(name, QString()); }

private:
    void bringIntoOrder() const;
    template <typename Less>
    void merge(Less less) const;

    mutable std::vector<ObjectFile> m_files;
    mutable QHash<QString, QString> m_pending; // name -> suffix; null for one that is gone
};

} // namespace hv
