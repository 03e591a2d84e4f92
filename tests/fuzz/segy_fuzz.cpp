// Feeds files of any content to the looking through and the import of SEG-Y. libFuzzer's program; see the CMake file.
#include "host/segy/Import.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/mman.h>
#include <unistd.h>

namespace {

/// A file in memory that has a path.
class MemoryFile
{
public:
    MemoryFile(const std::uint8_t* bytes, std::size_t size) : m_descriptor(memfd_create("fuzz", MFD_CLOEXEC))
    {
        if (write(m_descriptor, bytes, size) != static_cast<ssize_t>(size))
            std::abort();
    }
    ~MemoryFile() { close(m_descriptor); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    QString path() const { return QStringLiteral("/proc/self/fd/%1").arg(m_descriptor); }

private:
    const int m_descriptor;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    static const QTemporaryDir folder(QStringLiteral("/dev/shm/segy-fuzz-XXXXXX"));
    const MemoryFile file(bytes, size);
    hv::JobProgress progress;
    hv::JobContext context(progress);
    hv::segy::ScanChoice choice;
    if (size % 3 == 1)
        choice.positions.inlineNumber = choice.positions.crosslineNumber = hv::segy::Position{0, 4};
    const auto scan = hv::segy::scan(file.path(), choice, context);
    if (!scan) {
        if (scan.failure().sentence.isEmpty())
            std::abort();
        return 0;
    }
    const hv::segy::Scan& found = **scan;
    // The size of a volume is the user's to judge; here it would only fill the memory.
    if (!found.remarks.obstacle().isEmpty() || found.cells() * found.samples() > 4'000'000)
        return 0;
    hv::segy::ImportChoice part;
    part.orders = {size % 2 == 0, false};
    if (size % 5 == 0)
        part.inlines.every = part.samples.every = 2;
    const QString target = folder.filePath(QStringLiteral("fuzz.svol"));
    const auto counts = hv::segy::importSegy(found, part, target, context);
    if (counts && counts->read + counts->empty < 1)
        std::abort();
    QFile::remove(target);
    if (!QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).isEmpty())
        std::abort();
    return 0;
}
