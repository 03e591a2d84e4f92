#include "host/volume/FileMapping.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <limits>
#include <mutex>
#include <sys/mman.h>
#include <unistd.h>

namespace hv {

/// A mapping as the signal's handler sees it. They are never freed, only used anew, so the handler may walk over them
/// while others come and go.
struct Watched
{
    std::atomic<std::uintptr_t> begin = 0;
    std::atomic<std::uintptr_t> end = 0; // 0 while it stands for no mapping
    std::atomic<bool> isDamaged = false;
    Watched* next = nullptr;
};

namespace {

std::atomic<Watched*> g_watched = nullptr;
std::mutex g_mutex; // of whoever changes the list
/// What stands in for lost pages: a file in memory, filled with not-a-number, of this many bytes.
constexpr std::size_t g_substituteBytes = std::size_t(1) << 20;
int g_substitute = -1;
struct sigaction g_before;
std::atomic<bool> g_isPassedOn = false;

std::uintptr_t pageSize()
{
    static const auto size = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    return size;
}

/// Puts the substitute in the place of what cannot be read, from the page of `address` on. In the handler of a signal:
/// atomics and system calls only.
bool replaceLost(std::uintptr_t address)
{
    for (Watched* each = g_watched.load(std::memory_order_acquire); each; each = each->next) {
        const std::uintptr_t end = each->end.load(std::memory_order_acquire);
        if (address >= end || address < each->begin.load(std::memory_order_relaxed))
            continue;
        const std::uintptr_t page = address & ~(pageSize() - 1);
        const std::size_t bytes = std::min<std::uintptr_t>(g_substituteBytes, end - page);
        each->isDamaged.store(true, std::memory_order_release);
        return mmap(reinterpret_cast<void*>(page), bytes, PROT_READ, MAP_SHARED | MAP_FIXED, g_substitute, 0) !=
               MAP_FAILED;
    }
    return false;
}

void onBusError(int signal, siginfo_t* info, void* /*context*/)
{
    const int error = errno;
    const bool isReplaced = replaceLost(reinterpret_cast<std::uintptr_t>(info->si_addr));
    errno = error;
    if (isReplaced)
        return;
    // Nothing of ours: the instruction is tried once more under whoever had the signal before. One who hands it back
    // (as handlers that print something do) gets it as if nobody had it.
    struct sigaction next = g_before;
    if (g_isPassedOn.exchange(true)) {
        next.sa_handler = SIG_DFL;
        next.sa_flags = 0;
    }
    sigaction(SIGBUS, &next, nullptr);
    if (info->si_code <= 0) // sent, not met: no instruction will bring it again
        raise(signal);
}

bool makeSubstitute()
{
    g_substitute = memfd_create("strativo-lost", MFD_CLOEXEC);
    if (g_substitute < 0)
        return false;
    std::array<float, 1024> lost{};
    lost.fill(std::numeric_limits<float>::quiet_NaN());
    for (std::size_t done = 0; done < g_substituteBytes; done += sizeof(lost))
        if (write(g_substitute, lost.data(), sizeof(lost)) != static_cast<ssize_t>(sizeof(lost)))
            return false;
    return true;
}

/// Has the handler in place, also when somebody else has taken the signal since. Under the mutex.
void takeSignal()
{
    static const bool canReplace = pageSize() != 0 && makeSubstitute();
    struct sigaction present
    {};
    if (!canReplace || sigaction(SIGBUS, nullptr, &present) != 0 ||
        ((present.sa_flags & SA_SIGINFO) && present.sa_sigaction == onBusError))
        return;
    g_before = present;
    g_isPassedOn = false;
    struct sigaction own
    {};
    own.sa_sigaction = onBusError;
    own.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigemptyset(&own.sa_mask);
    sigaction(SIGBUS, &own, nullptr);
}

Watched* watch(std::uintptr_t begin, std::size_t bytes)
{
    const std::lock_guard lock(g_mutex);
    takeSignal();
    Watched* free = g_watched.load(std::memory_order_relaxed);
    while (free && free->end.load(std::memory_order_relaxed) != 0)
        free = free->next;
    if (!free) {
        free = new Watched;
        free->next = g_watched.load(std::memory_order_relaxed);
        g_watched.store(free, std::memory_order_release);
    }
    free->isDamaged.store(false, std::memory_order_relaxed);
    free->begin.store(begin, std::memory_order_relaxed);
    free->end.store(begin + bytes, std::memory_order_release);
    return free;
}

} // namespace

Result<std::shared_ptr<const FileMapping>> FileMapping::map(int descriptor, std::size_t bytes)
{
    void* data = mmap(nullptr, bytes, PROT_READ, MAP_SHARED, descriptor, 0);
    if (data == MAP_FAILED) {
        Failure failure(QString::fromLocal8Bit(std::strerror(errno)));
        failure.systemError = errno;
        return failure;
    }
    std::shared_ptr<FileMapping> mapping(new FileMapping);
    mapping->m_data = static_cast<std::byte*>(data);
    mapping->m_size = bytes;
    // To the end of the last page, all of which the system maps.
    mapping->m_watched = watch(reinterpret_cast<std::uintptr_t>(data), (bytes + pageSize() - 1) & ~(pageSize() - 1));
    return std::shared_ptr<const FileMapping>(std::move(mapping));
}

FileMapping::~FileMapping()
{
    if (m_watched) {
        const std::lock_guard lock(g_mutex);
        m_watched->end.store(0, std::memory_order_release);
    }
    munmap(m_data, m_size);
}

bool FileMapping::isDamaged() const
{
    return m_watched->isDamaged.load(std::memory_order_acquire);
}

bool FileMapping::isInMemory(std::size_t offset, std::size_t bytes) const
{
    constexpr std::size_t most = 4096; // pages asked for at once
    std::array<unsigned char, most> pages;
    std::size_t at = offset & ~(pageSize() - 1);
    const std::size_t end = offset + bytes;
    while (at < end) {
        const std::size_t part = std::min(end - at, most * pageSize());
        if (mincore(m_data + at, part, pages.data()) != 0)
            return false;
        const std::size_t count = (part + pageSize() - 1) / pageSize();
        if (std::find_if(pages.begin(), pages.begin() + static_cast<std::ptrdiff_t>(count), [](unsigned char page) {
                return (page & 1) == 0;
            }) != pages.begin() + static_cast<std::ptrdiff_t>(count))
            return false;
        at += part;
    }
    return true;
}

} // namespace hv
