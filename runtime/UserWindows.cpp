#include "runtime/UserWindows.h"

namespace python {

namespace {

IUserWindows* g_windows = nullptr; // NOLINT: set once

} // namespace

IUserWindows* userWindows()
{
    return g_windows;
}

void setUserWindows(IUserWindows* windows)
{
    g_windows = windows;
}

} // namespace python
