#include "host/formats/WholeFile.h"

#include "host/formats/PartFile.h"

namespace hv {

bool writeWholeFile(const QString& path, const QByteArray& bytes, QString& error)
{
    PartFile file;
    return file.open(path, error) && file.commit(bytes, error);
}

} // namespace hv
