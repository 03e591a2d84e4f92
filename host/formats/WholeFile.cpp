#include "host/formats/WholeFile.h"

#include <QFileInfo>
#include <QSaveFile>

namespace hv {

bool writeWholeFile(const QString& path, const QByteArray& bytes, QString& error)
{
    // Renaming the finished file over a device or a pipe would replace it.
    const QFileInfo target(path);
    if (target.exists() && !target.isFile()) {
        error = QStringLiteral("it is not an ordinary file");
        return false;
    }
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() && file.commit())
        return true;
    error = file.errorString();
    return false;
}

} // namespace hv
