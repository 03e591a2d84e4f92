#include "host/services/WriteAll.h"

#include <cerrno>
#include <unistd.h>

namespace hv {

int writeAll(int file, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t written = ::write(file, text.data(), text.size());
        if (written >= 0)
            text.remove_prefix(static_cast<std::size_t>(written));
        else if (errno != EINTR && errno != EAGAIN)
            return errno;
    }
    return 0;
}

} // namespace hv
