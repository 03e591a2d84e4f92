#include "runtime/QtCall.h"

#include "host/services/IAppWrapper.h"
#include "runtime/ApplicationInterface.h"

namespace python {

namespace {

IRunObserver* runObserver()
{
    const IAppWrapper* app = applicationInterface();
    return app ? app->runObserver() : nullptr;
}

} // namespace

QtCall::QtCall(const char* name) : m_monitor(runObserver(), name)
{
    PyErr_Fetch(&m_pending[0], &m_pending[1], &m_pending[2]);
    ++s_depth;
}

QtCall::~QtCall()
{
    leave();
    PyErr_Restore(m_pending[0], m_pending[1], m_pending[2]);
}

} // namespace python
