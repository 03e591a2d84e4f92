#include "module/gui/GuiThread.h"

#include "runtime/Errors.h"

#include <QCoreApplication>
#include <QThread>

namespace python {

void requireGuiThread()
{
    const QCoreApplication* application = QCoreApplication::instance();
    if (!application || application->thread() != QThread::currentThread())
        raise(PyExc_RuntimeError, "windows can only be used on the main thread");
}

} // namespace python
