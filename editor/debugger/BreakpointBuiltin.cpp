#include "editor/debugger/BreakpointBuiltin.h"

#include "editor/debugger/Engine.h"
#include "host/services/HVEventBus.h"
#include "runtime/Ref.h"

#include <QCoreApplication>

namespace debugger {

namespace {

Engine* g_engine = nullptr;

PyObject* breakpointReached(PyObject* /*self*/, PyObject* /*arguments*/, PyObject* /*keywords*/)
{
    if (g_engine && !g_engine->isPaused() && !g_engine->stopAtNextLine())
        HVEventBus::instance().sendMessage(
            MessageLevel::Information,
            QCoreApplication::translate("debugger", "breakpoint(): the debugger is not enabled, the script goes on."));
    Py_RETURN_NONE;
}

PyMethodDef g_method = {"breakpointhook",
                        reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(breakpointReached)),
                        METH_VARARGS | METH_KEYWORDS,
                        "breakpointhook(*args, **kwargs) -> None\n\n"
                        "Stops the script in the application's debugger."};

} // namespace

void setBreakpointBuiltin(Engine* engine)
{
    g_engine = engine;
    const auto hook = engine ? python::Ref::steal(PyCFunction_New(&g_method, nullptr))
                             : python::Ref::borrow(PySys_GetObject("__breakpointhook__"));
    if (hook)
        PySys_SetObject("breakpointhook", hook.get());
    PyErr_Clear();
}

} // namespace debugger
