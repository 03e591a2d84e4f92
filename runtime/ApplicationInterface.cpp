#include "runtime/ApplicationInterface.h"

#include "host/services/IAppWrapper.h"

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

hv::ChangeLog* projectChanges()
{
    return g_application ? g_application->projectChanges() : nullptr;
}

} // namespace python
