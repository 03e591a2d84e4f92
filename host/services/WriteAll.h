#pragma once

#include <string_view>

namespace hv {

/// Writes everything to an open file of the process, waiting for a reader where it must; the system's error number when
/// that is not possible, else 0. Thread-safe.
int writeAll(int file, std::string_view text);

} // namespace hv
