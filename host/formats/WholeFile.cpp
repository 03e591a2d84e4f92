#include "host/formats/WholeFile.h"

#include "host/formats/PartFile.h"

namespace hv {

Result<void> writeWholeFile(const QString& path, const QByteArray& bytes)
{
    PartFile file;
    auto opened = file.open(path);
    return opened ? file.commit(bytes) : opened;
}

} // namespace hv
