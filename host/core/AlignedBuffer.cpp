#include "host/core/AlignedBuffer.h"

#include <limits>
#include <new>
#ifdef __linux__
#include <sys/mman.h>
#endif

namespace core {

AlignedBuffer AlignedBuffer::allocate(std::int64_t bytes)
{
    AlignedBuffer buffer;
    if (bytes < 0 || bytes > std::numeric_limits<std::ptrdiff_t>::max() / 2)
        return buffer;
    const auto size = static_cast<std::size_t>(bytes);
    buffer.m_block.reset(::operator new(size, std::align_val_t(Alignment), std::nothrow));
#ifdef MADV_HUGEPAGE
    constexpr std::size_t HugePage = std::size_t(2) << 20;
    if (buffer && size >= 2 * HugePage) {
        // Advice only: where it is not taken the block works with small pages.
        const auto start = (reinterpret_cast<std::uintptr_t>(buffer.m_block.get()) + HugePage - 1) & ~(HugePage - 1);
        const auto end = reinterpret_cast<std::uintptr_t>(buffer.m_block.get()) + size;
        madvise(reinterpret_cast<void*>(start), end - start, MADV_HUGEPAGE);
    }
#endif
    return buffer;
}

void AlignedBuffer::Release::operator()(void* block) const
{
    ::operator delete(block, std::align_val_t(Alignment), std::nothrow);
}

} // namespace core
