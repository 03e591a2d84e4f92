#include "host/objects/ObjectListing.h"

#include "host/objects/NaturalOrder.h"

#include <QFile>

#include <algorithm>
#include <filesystem>

namespace hv {

std::vector<ObjectFile> listObjects(const QString& folder, const ObjectKindInfo& info)
{
    namespace fs = std::filesystem;
    std::vector<ObjectFile> found;
    std::error_code error;
    // Not QDir, which asks the system about each file; the kind of entry comes with the directory here.
    for (fs::directory_iterator it(QFile::encodeName(folder).toStdString(), error), end; !error && it != end;
         it.increment(error)) {
        const std::string native = it->path().filename().string();
        const QString fileName = QFile::decodeName(native.c_str());
        const QString name = info.objectName(fileName);
        std::error_code ignored;
        if (name.isEmpty() || !it->is_regular_file(ignored) || QFile::encodeName(fileName) != native.c_str())
            continue;
        found.push_back({name, fileName});
    }
    const QString first = info.suffix();
    std::sort(found.begin(), found.end(), [&](const ObjectFile& a, const ObjectFile& b) {
        if (a.name != b.name)
            return naturalLess(a.name, b.name);
        const bool isFirst = a.fileName.endsWith(first);
        return isFirst != b.fileName.endsWith(first) ? isFirst : a.fileName < b.fileName;
    });
    const auto sameName = [](const ObjectFile& a, const ObjectFile& b) { return a.name == b.name; };
    found.erase(std::unique(found.begin(), found.end(), sameName), found.end());
    return found;
}

} // namespace hv
