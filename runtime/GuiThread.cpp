#include "runtime/GuiThread.h"

#include "runtime/Errors.h"
#include "runtime/ForkedChild.h"

#include <QCoreApplication>
#include <QThread>

namespace python {

bool isGuiThread()
{
    const QCoreApplication* application = QCoreApplication::instance();
    return application && application->thread() == QThread::currentThread();
}

void requireGuiThread()
{
    if (!isGuiThread())
        raise(PyExc_RuntimeError, "windows can only be used on the main thread");
    if (ForkedChild::isHere())
        raise(PyExc_RuntimeError, "windows can not be used in a forked process");
}

} // namespace python
