#include "runtime/RunTimeErrorHandler.h"

#include "host/services/HVEventBus.h"
#include "host/services/IAppWrapper.h"
#include "runtime/ApplicationInterface.h"
#include "runtime/AskedStop.h"
#include "runtime/CodeEditor.h"
#include "runtime/ErrorLocation.h"
#include "runtime/Errors.h"
#include "runtime/ExitStatus.h"
#include "runtime/GilLock.h"
#include "runtime/GuiThread.h"
#include "runtime/PendingError.h"
#include "runtime/UserWindows.h"

#include <QSettings>

namespace python {

namespace {

ModuleFinder& moduleFinder()
{
    static ModuleFinder finder;
    return finder;
}

ErrorObserver& errorObserver()
{
    static ErrorObserver observer;
    return observer;
}

bool isTerminalProgram()
{
    const IAppWrapper* app = applicationInterface();
    return app && app->isTerminalProgram();
}

/// GUI thread only.
void closeWhatTheScriptLeftOpen()
{
    IAppWrapper* app = applicationInterface();
    IProgressService* progress = app ? app->progressService() : nullptr;
    if (progress && progress->isAnyRunning())
        progress->closeAll();
    if (IUserWindows* windows = userWindows())
        windows->closeModalWindow();
}

/// The built-in exit() closes sys.stdin, which only a process that ends can do without.
void reopenStandardInput()
{
    PyObject* input = PySys_GetObject("stdin");
    const Ref closed = Ref::steal(input ? PyObject_GetAttrString(input, "closed") : nullptr);
    if (closed.get() == Py_True)
        if (const Ref fresh = Ref::steal(PyFile_FromFd(0, "<stdin>", "r", -1, "utf-8", nullptr, nullptr, 0)))
            PySys_SetObject("stdin", fresh.get());
    PyErr_Clear();
}

void reportSystemExit(const ErrorLocation& location)
{
    HVEventBus& bus = HVEventBus::instance();
    const QString file =
        location.file.empty() ? QStringLiteral("Unknown filename") : QString::fromStdString(location.file);
    const QString function =
        location.function.empty() ? QStringLiteral("Unknown function") : QString::fromStdString(location.function);
    bus.sendMessage(MessageLevel::Error, QStringLiteral("SystemExit exception raised in"), false);
    bus.sendMessage(MessageLevel::Error,
                    QStringLiteral("  File \"%1\", line %2, in %3").arg(file, QString::number(location.line), function),
                    true);
}

/// No package brings a module that is the standard library's but not part of the shipped tree.
bool isOfTheLibrary(PyObject* name)
{
    PyObject* names = PySys_GetObject("stdlib_module_names");
    const bool found = names && PySequence_Contains(names, name) == 1;
    PyErr_Clear();
    return found;
}

void reportMissingModule(PendingError& exception, CodeEditor* editor)
{
    const Ref name = exception.attribute("name");
    if (!name) {
        PyErr_SetString(PyExc_AttributeError, "ModuleNotFoundError missing module 'name' attribute. Uh oh");
        printPendingError();
        exception.putBack();
        return;
    }
    const QString moduleName = isOfTheLibrary(name.get()) ? QString() : QString::fromStdString(utf8Of(name.get()));
    const bool installed = moduleFinder() && !moduleName.isEmpty() && moduleFinder()(moduleName);
    if (installed) {
        if (editor)
            editor->clearErrors();
        exception.drop();
    } else {
        exception.putBack();
        printPendingError();
    }
    PyGC_Collect();
}

bool isSyntaxLike(PyObject* type)
{
    // TabError and IndentationError are SyntaxErrors.
    return PyErr_GivenExceptionMatches(type, PyExc_SyntaxError) ||
           PyErr_GivenExceptionMatches(type, PyExc_UnicodeDecodeError);
}

} // namespace

void setErrorObserver(ErrorObserver observer)
{
    errorObserver() = std::move(observer);
}

void setModuleFinder(ModuleFinder finder)
{
    moduleFinder() = std::move(finder);
}

void reportSyntaxError(CodeEditor* editor)
{
    PendingError exception;
    const Ref file = exception.attribute("filename");
    const Ref line = exception.attribute("lineno");
    if (file && line && editor && PyLong_Check(line.get()))
        editor->errorDetected(utf8Of(file.get()), std::string(), PyLong_AsLong(line.get()));
    exception.putBack();
    printPendingError();
}

RunEnd handleRunTimeError(CodeEditor* editor, int* status)
{
    const GilLock lock;
    const Ref type = Ref::borrow(PyErr_Occurred());
    if (!type)
        return RunEnd::Finished;
    if (status)
        *status = 1;

    const bool mayOpenAndCloseWindows = isGuiThread();
    if (mayOpenAndCloseWindows) {
        // Closing a window may run Python code, which must not find an exception pending.
        const PendingError pending;
        closeWhatTheScriptLeftOpen();
    }

    const bool findModules =
        mayOpenAndCloseWindows && QSettings().value(QStringLiteral("Python/autofind"), true).toBool();
    if (isSyntaxLike(type.get())) {
        reportSyntaxError(editor);
        PyGC_Collect();
        return RunEnd::Raised;
    }

    if (reportAskedStop()) {
        PyGC_Collect();
        return RunEnd::Stopped;
    }

    PendingError exception;
    PyObject* error = exception.value();
    ErrorLocation location;
    if (exception.traceback() && editor) {
        location = innermostLocation(exception.traceback());
        editor->errorDetected(location.file, location.function, location.line);
    }

    if (exception.isA(PyExc_SystemExit)) {
        const int exit = exitStatus(error, isTerminalProgram());
        if (status)
            *status = exit;
        if (!isTerminalProgram())
            reportSystemExit(location);
        reopenStandardInput();
        exception.drop();
        PyGC_Collect();
        return exit == 0 ? RunEnd::ExitedZero : RunEnd::ExitedNonZero;
    }
    // A copy: the observer may be replaced while it looks.
    const ErrorObserver observer = errorObserver();
    if (observer && mayOpenAndCloseWindows && !exception.isA(PyExc_KeyboardInterrupt))
        observer(error, exception.traceback());
    if (exception.isA(PyExc_ModuleNotFoundError) && findModules) {
        reportMissingModule(exception, editor);
        return RunEnd::Raised;
    }
    exception.putBack();
    printPendingError();
    PyGC_Collect();
    return RunEnd::Raised;
}

} // namespace python
