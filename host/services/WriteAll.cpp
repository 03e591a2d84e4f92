#include "host/services/WriteAll.h"

#include <cerrno>
#include <poll.h>
#include <unistd.h>

namespace hv {

int writeAll(int file, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t written = ::write(file, text.data(), text.size());
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno == EAGAIN) {
            // Whoever shares the file has switched it to not waiting. What ends the wait, the next attempt tells.
            pollfd room{file, POLLOUT, 0};
            ::poll(&room, 1, -1);
        } else if (errno != EINTR) {
            return errno;
        }
    }
    return 0;
}

} // namespace hv
