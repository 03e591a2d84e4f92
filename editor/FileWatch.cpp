#include "editor/FileWatch.h"

#include <QFileInfo>

namespace editor {

FileWatch::FileWatch()
{
    connect(this, &HVFileWatch::looked, this, &FileWatch::updateReadOnly);
}

void FileWatch::updateReadOnly()
{
    const QFileInfo info(path());
    const bool readOnly =
        !path().isEmpty() && info.exists() && (!info.isWritable() || !QFileInfo(info.absolutePath()).isWritable());
    if (std::exchange(m_readOnly, readOnly) != readOnly)
        Q_EMIT readOnlyChanged(readOnly);
}

} // namespace editor
