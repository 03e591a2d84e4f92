#include "host/services/HVWholeFile.h"

#include <QSaveFile>

namespace hv {

bool writeWholeFile(const QString& path, const QByteArray& bytes, QString& error)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() && file.commit())
        return true;
    error = file.errorString();
    return false;
}

} // namespace hv
