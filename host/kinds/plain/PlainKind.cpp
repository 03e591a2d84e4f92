#include "host/kinds/plain/PlainKind.h"

#include <QDir>
#include <QFileInfo>

namespace hv {

Result<ObjectValue> PlainKind::read(const QString& path) const
{
    const QFileInfo file(path);
    if (!file.isFile())
        return Failure(QStringLiteral("There is no file '%1'.").arg(QDir::toNativeSeparators(path)), path);
    return ObjectValue::of(PlainFile{file.size(), file.lastModified()});
}

Result<void> PlainKind::write(const ObjectValue& /*value*/, const QString& path) const
{
    return Failure(QStringLiteral("Unable to write '%1': %2 cannot be written.")
                       .arg(QDir::toNativeSeparators(path), QLatin1String(m_info.plural)),
                   path);
}

std::vector<Description> PlainKind::rows(const PlainFile& file) const
{
    return describeFile(file.size, file.modified);
}

} // namespace hv
