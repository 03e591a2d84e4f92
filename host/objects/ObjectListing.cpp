#include "host/objects/ObjectListing.h"

#include "host/objects/NaturalOrder.h"

#include <QFile>

#include <algorithm>
#include <cstring>
#include <dirent.h>
#include <numeric>
#include <sys/stat.h>

namespace hv {

namespace {

/// Up to here each change looks for its place; more are merged with the whole.
constexpr int g_fewChanges = 16;

/// Sorts faster than by comparing names: by keys that lie beside each other, of which most comparisons need the first
/// eight bytes behind what all names begin with.
class Sorter
{
public:
    explicit Sorter(const std::vector<ObjectFile>& files) : m_files(files)
    {
        m_entries.reserve(files.size());
        for (std::size_t index = 0; index < files.size(); ++index) {
            const std::size_t offset = m_keys.size();
            appendNaturalKey(files[index].name, m_keys);
            m_entries.push_back({0, offset, m_keys.size() - offset, index});
        }
        const std::size_t common = commonBeginning();
        for (Entry& entry : m_entries) {
            entry.offset += common;
            entry.length -= common;
            for (std::size_t byte = 0; byte < sizeof entry.head; ++byte)
                entry.head = entry.head << 8 |
                             (byte < entry.length ? static_cast<unsigned char>(m_keys[entry.offset + byte]) : 0U);
        }
    }

    template <typename TieLess>
    std::vector<std::size_t> order(TieLess tieLess)
    {
        std::sort(m_entries.begin(), m_entries.end(), [&](const Entry& a, const Entry& b) {
            if (a.head != b.head)
                return a.head < b.head;
            const int order =
                std::memcmp(m_keys.data() + a.offset, m_keys.data() + b.offset, std::min(a.length, b.length));
            if (order != 0 || a.length != b.length)
                return order != 0 ? order < 0 : a.length < b.length;
            return tieLess(m_files[a.index], m_files[b.index]);
        });
        std::vector<std::size_t> indices(m_entries.size());
        std::transform(m_entries.begin(), m_entries.end(), indices.begin(),
                       [](const Entry& entry) { return entry.index; });
        return indices;
    }

private:
    struct Entry
    {
        std::uint64_t head;
        std::size_t offset;
        std::size_t length;
        std::size_t index;
    };

    std::size_t commonBeginning() const
    {
        if (m_entries.empty())
            return 0;
        const char* first = m_keys.data() + m_entries.front().offset;
        std::size_t common = m_entries.front().length;
        for (const Entry& entry : m_entries) {
            const char* key = m_keys.data() + entry.offset;
            common = static_cast<std::size_t>(std::mismatch(first, first + std::min(common, entry.length), key).first -
                                              first);
        }
        return common;
    }

    const std::vector<ObjectFile>& m_files;
    std::string m_keys;
    std::vector<Entry> m_entries;
};

/// Empty for a name that is not text: it would not lead back to the file.
QString decoded(const char* native)
{
    const std::size_t length = std::strlen(native);
    if (std::none_of(native, native + length, [](char c) { return static_cast<unsigned char>(c) > 0x7f; }))
        return QString::fromLatin1(native, static_cast<int>(length));
    QString name = QFile::decodeName(native);
    return QFile::encodeName(name) == native ? name : QString();
}

bool isRegularFile(DIR* folder, const dirent& entry)
{
    struct stat status
    {};
    if (entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK)
        return entry.d_type == DT_REG;
    return fstatat(dirfd(folder), entry.d_name, &status, 0) == 0 && S_ISREG(status.st_mode);
}

} // namespace

ObjectListing ObjectListing::read(const QString& folder, const ObjectKindInfo& info)
{
    ObjectListing listing;
    // Not QDir, which asks the system about each file; the kind of entry comes with the folder here.
    DIR* directory = opendir(QFile::encodeName(folder).constData());
    if (!directory)
        return listing;
    std::vector<ObjectFile> found;
    QHash<QString, QString> suffixes; // each stored once
    while (const dirent* entry = readdir(directory)) {
        const QString fileName = decoded(entry->d_name);
        const QString name = info.objectName(fileName);
        if (name.isEmpty() || !isRegularFile(directory, *entry))
            continue;
        const QString own = fileName.mid(name.size() + 1);
        QString& suffix = suffixes[own];
        if (suffix.isNull())
            suffix = own;
        found.push_back({name, suffix});
    }
    closedir(directory);
    const auto order = Sorter(found).order([&info](const ObjectFile& a, const ObjectFile& b) {
        return a.name != b.name ? naturalLess(a.name, b.name) : info.prefers(a.suffix, b.suffix);
    });
    listing.m_files.reserve(found.size());
    for (const std::size_t index : order)
        if (listing.m_files.empty() || listing.m_files.back().name != found[index].name)
            listing.m_files.push_back(std::move(found[index]));
    return listing;
}

const std::vector<ObjectFile>& ObjectListing::files() const
{
    if (!m_pending.isEmpty())
        bringIntoOrder();
    return m_files;
}

std::optional<ObjectFile> ObjectListing::find(const QString& name) const
{
    if (const auto pending = m_pending.find(name); pending != m_pending.end())
        return pending->isNull() ? std::nullopt : std::optional(ObjectFile{name, *pending});
    const auto at =
        std::lower_bound(m_files.begin(), m_files.end(), name,
                         [](const ObjectFile& file, const QString& n) { return naturalLess(file.name, n); });
    return at != m_files.end() && at->name == name ? std::optional(*at) : std::nullopt;
}

void ObjectListing::bringIntoOrder() const
{
    const auto less = [](const ObjectFile& a, const ObjectFile& b) { return naturalLess(a.name, b.name); };
    if (m_pending.size() <= g_fewChanges)
        for (auto it = m_pending.begin(); it != m_pending.end(); ++it) {
            const ObjectFile file{it.key(), it.value()};
            const auto at = std::lower_bound(m_files.begin(), m_files.end(), file, less);
            const bool isThere = at != m_files.end() && at->name == file.name;
            if (isThere && file.suffix.isNull())
                m_files.erase(at);
            else if (isThere)
                at->suffix = file.suffix;
            else if (!file.suffix.isNull())
                m_files.insert(at, file);
        }
    else
        merge(less);
    m_pending.clear();
}

template <typename Less>
void ObjectListing::merge(Less less) const
{
    std::vector<ObjectFile> come;
    for (auto it = m_pending.begin(); it != m_pending.end(); ++it)
        if (!it.value().isNull())
            come.push_back({it.key(), it.value()});
    std::sort(come.begin(), come.end(), less);
    m_files.erase(std::remove_if(m_files.begin(), m_files.end(),
                                 [this](const ObjectFile& file) { return m_pending.contains(file.name); }),
                  m_files.end());
    std::vector<ObjectFile> merged;
    merged.reserve(m_files.size() + come.size());
    std::merge(std::make_move_iterator(m_files.begin()), std::make_move_iterator(m_files.end()),
               std::make_move_iterator(come.begin()), std::make_move_iterator(come.end()), std::back_inserter(merged),
               less);
    m_files = std::move(merged);
}

} // namespace hv
