#include "runtime/AskedStop.h"

#include "host/services/HVEventBus.h"
#include "host/services/IAppWrapper.h"
#include "runtime/ApplicationInterface.h"

#include <boost/python/detail/wrap_python.hpp>
#include <frameobject.h>

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

/// Empty without a traceback.
QString innermostPlace(PyObject* traceback)
{
    auto* entry = reinterpret_cast<PyTracebackObject*>(traceback);
    if (!entry)
        return {};
    while (entry->tb_next)
        entry = entry->tb_next;
    PyObject* line = PyObject_GetAttrString(reinterpret_cast<PyObject*>(entry), "tb_lineno");
    PyCodeObject* code = PyFrame_GetCode(entry->tb_frame);
    const char* file = PyUnicode_AsUTF8(code->co_filename);
    QString place;
    if (line && file)
        place = QCoreApplication::translate("AskedStop", "line %1 of %2")
                    .arg(std::max(PyLong_AsLong(line), 1L)) // 0 before the first line of a module
                    .arg(QString::fromUtf8(file));
    PyErr_Clear();
    Py_XDECREF(line);
    Py_DECREF(code);
    return place;
}

} // namespace

bool reportAskedStop()
{
    if (!PyErr_Occurred() || !isAskedStop())
        return false;
    PyObject *type = nullptr, *value = nullptr, *traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    const QString place = innermostPlace(traceback);
    Py_XDECREF(type);
    Py_XDECREF(value);
    Py_XDECREF(traceback);
    PyErr_Clear();
    HVEventBus::instance().sendMessage(MessageLevel::Information,
                                       place.isEmpty()
                                           ? QCoreApplication::translate("AskedStop", "Stopped.")
                                           : QCoreApplication::translate("AskedStop", "Stopped at %1.").arg(place));
    return true;
}

} // namespace python
