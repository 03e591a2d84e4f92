#include "host/services/HVMemory.h"

#include <limits>
#include <utility>
#ifdef _WIN32
#include <windows.h>
#else
#include <cstdio>
#include <memory>
#endif

namespace hv {

namespace {

std::int64_t systemMemory()
{
    constexpr std::int64_t Unknown = std::numeric_limits<std::int64_t>::max();
#ifdef _WIN32
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    return GlobalMemoryStatusEx(&status) ? static_cast<std::int64_t>(status.ullAvailVirtual) : Unknown;
#else
    // Virtual address space is no limit here; MemAvailable is what the kernel would give without swapping.
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen("/proc/meminfo", "re"), &std::fclose);
    char line[256];
    while (file && std::fgets(line, sizeof line, file.get())) {
        long long kibibytes = 0;
        if (std::sscanf(line, "MemAvailable: %lld kB", &kibibytes) == 1)
            return kibibytes * 1024;
    }
    return Unknown;
#endif
}

std::function<std::int64_t()>& source()
{
    static std::function<std::int64_t()> current = systemMemory;
    return current;
}

} // namespace

std::int64_t availableMemory()
{
    return source()();
}

AvailableMemoryOverride::AvailableMemoryOverride(std::function<std::int64_t()> answer)
    : m_previous(std::exchange(source(), std::move(answer)))
{}

AvailableMemoryOverride::~AvailableMemoryOverride()
{
    source() = std::move(m_previous);
}

} // namespace hv
