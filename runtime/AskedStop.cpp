#include "runtime/AskedStop.h"

#include "host/services/HVEventBus.h"
#include "host/services/IAppWrapper.h"
#include "runtime/ApplicationInterface.h"
#include "runtime/ErrorLocation.h"
#include "runtime/PendingError.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>

namespace python {

namespace {

bool isAskedStop()
{
    const QCoreApplication* application = QCoreApplication::instance();
    if (!PyErr_ExceptionMatches(PyExc_KeyboardInterrupt) || !application ||
        QThread::currentThread() != application->thread())
        return false;
    IAppWrapper* app = applicationInterface();
    const IRunObserver* observer = app ? app->runObserver() : nullptr;
    return observer && observer->stopWasAsked();
}

} // namespace

bool reportAskedStop()
{
    if (!PyErr_Occurred() || !isAskedStop())
        return false;
    PendingError stop;
    const ErrorLocation location = innermostLocation(stop.traceback());
    stop.drop();
    PyErr_Clear();
    HVEventBus::instance().sendMessage(MessageLevel::Information,
                                       location.file.empty()
                                           ? QCoreApplication::translate("AskedStop", "Stopped.")
                                           : QCoreApplication::translate("AskedStop", "Stopped at line %1 of %2.")
                                                 .arg(std::max(location.line, 1L)) // 0 before a module's first line
                                                 .arg(QString::fromStdString(location.file)));
    return true;
}

} // namespace python
