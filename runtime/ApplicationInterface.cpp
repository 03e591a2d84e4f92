#include "runtime/ApplicationInterface.h"

namespace python {

namespace {
IAppWrapper* g_application = nullptr; // NOLINT: process-wide by design
}

IAppWrapper* applicationInterface()
{
    return g_application;
}

void setApplicationInterface(IAppWrapper* app)
{
    g_application = app;
}

} // namespace python
