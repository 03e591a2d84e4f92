#pragma once

#include "host/jobs/JobContext.h"
#include "host/segy/SegyFile.h"

#include <vector>

namespace hv::segy {

/// Traces up to this length are read whole, which is faster than a call of the system for each header.
inline constexpr std::int64_t g_shortTrace = 2048;
/// The disk is asked for the data of longer ones, too: it gives everything in a row faster than many single pages.
inline constexpr std::int64_t g_longTrace = 64 * 1024;
inline constexpr std::int64_t g_walkBytes = 4 << 20;

/// Calls see(trace, header) for each trace from `first` on; a header has 240 bytes. Takes a step of `context` for each.
template <class See>
Result<void> walkHeaders(const SegyFile& file, std::int64_t first, std::int64_t count, JobContext& context, See see)
{
    const Layout& layout = file.layout();
    const std::int64_t block = std::max<std::int64_t>(1, g_walkBytes / layout.traceBytes);
    const bool isWhole = layout.traceBytes <= g_shortTrace;
    std::vector<std::byte> buffer(static_cast<std::size_t>(isWhole ? block * layout.traceBytes : g_headerBytes));
    for (std::int64_t done = 0; done < count; done += block) {
        if (context.cancelled())
            return JobContext::stopped();
        const std::int64_t now = std::min(block, count - done);
        if (isWhole) {
            if (Result<void> read = file.readTraces(first + done, now, buffer.data()); !read)
                return read;
            for (std::int64_t i = 0; i < now; ++i)
                see(first + done + i, buffer.data() + i * layout.traceBytes);
        } else {
            if (layout.traceBytes <= g_longTrace)
                file.announce(first + done + now, std::min(block, count - done - now));
            for (std::int64_t i = 0; i < now; ++i) {
                if (Result<void> read = file.readHeader(first + done + i, buffer.data()); !read)
                    return read;
                see(first + done + i, buffer.data());
            }
        }
        context.advance(now);
    }
    return {};
}

} // namespace hv::segy
