#pragma once

#include "host/services/HVFileWatch.h"

/// Tells when another program changes the file that an editor shows, or whether it may be written. GUI thread only.
namespace editor {

class FileWatch : public HVFileWatch
{
    Q_OBJECT

public:
    FileWatch();

    /// Whether the file is there and saving it would fail: itself or its folder must not be written.
    bool isReadOnly() const { return m_readOnly; }

Q_SIGNALS:
    void readOnlyChanged(bool readOnly);

private:
    void updateReadOnly();

    bool m_readOnly = false;
};

} // namespace editor
