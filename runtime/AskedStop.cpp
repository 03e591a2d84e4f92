#include "runtime/AskedStop.h"

#include "host/services/HVEventBus.h"
#include "host/services/IAppWrapper.h"
#include "runtime/ApplicationInterface.h"
#include "runtime/ErrorLocation.h"

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
    PyObject *type = nullptr, *value = nullptr, *traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    const ErrorLocation location = innermostLocation(traceback);
    Py_XDECREF(type);
    Py_XDECREF(value);
    Py_XDECREF(traceback);
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
