#include "runtime/QtCall.h"

#include "host/changes/ChangeLog.h"
#include "host/services/IAppWrapper.h"
#include "runtime/ApplicationInterface.h"

#include <optional>

namespace python {

namespace {

IRunObserver* runObserver()
{
    const IAppWrapper* app = applicationInterface();
    return app ? app->runObserver() : nullptr;
}

/// What the outermost call changes in the project is one step for Undo.
std::optional<hv::ChangeScope> g_step; // NOLINT: of the GUI thread, like the next
int g_calls = 0;                       // NOLINT

} // namespace

QtCall::QtCall(const char* name) : m_monitor(runObserver(), name)
{
    ++s_depth;
    if (g_calls++ == 0)
        g_step.emplace(projectChanges(), name);
}

QtCall::~QtCall()
{
    if (--g_calls == 0)
        g_step.reset();
    leave();
}

} // namespace python
