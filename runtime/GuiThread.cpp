#include "runtime/GuiThread.h"

#include "host/services/IAppWrapper.h"
#include "runtime/ApplicationInterface.h"
#include "runtime/Errors.h"
#include "runtime/ForkedChild.h"

#include <QCoreApplication>

#include <thread>

namespace python {

namespace {

std::thread::id g_guiThread; // NOLINT: process-wide by design; of no thread at first

} // namespace

void setGuiThread()
{
    g_guiThread = std::this_thread::get_id();
}

bool isGuiThread()
{
    return std::this_thread::get_id() == g_guiThread;
}

void requireGuiThread()
{
    if (!isGuiThread())
        raise(PyExc_RuntimeError, "windows can only be used on the main thread");
    if (ForkedChild::isHere())
        raise(PyExc_RuntimeError, "windows can not be used in a forked process");
}

void requireWindows()
{
    if (QCoreApplication::instance()) [[likely]]
        return;
    requireGuiThread();
    if (IAppWrapper* app = applicationInterface())
        app->provideWindows();
}

} // namespace python
