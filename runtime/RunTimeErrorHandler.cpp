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

/// The fetched exception; given back by restore(), otherwise dropped.
class FetchedException
{
public:
    FetchedException()
    {
        PyErr_Fetch(&m_type, &m_value, &m_traceback);
        PyErr_NormalizeException(&m_type, &m_value, &m_traceback);
        if (m_traceback && m_value)
            PyException_SetTraceback(m_value, m_traceback);
    }
    ~FetchedException()
    {
        Py_XDECREF(m_type);
        Py_XDECREF(m_value);
        Py_XDECREF(m_traceback);
    }
    FetchedException(const FetchedException&) = delete;
    FetchedException& operator=(const FetchedException&) = delete;

    void restore()
    {
        PyErr_Restore(std::exchange(m_type, nullptr), std::exchange(m_value, nullptr),
                      std::exchange(m_traceback, nullptr));
    }

    bool isA(PyObject* type) const { return m_type && PyErr_GivenExceptionMatches(m_type, type); }
    PyObject* traceback() const { return m_traceback; }
    PyObject* value() const { return m_value; }

    /// New reference, or null (nothing pending) when the exception has no such attribute.
    PyObject* attribute(const char* name) const
    {
        PyObject* value = m_value ? PyObject_GetAttrString(m_value, name) : nullptr;
        if (!value)
            PyErr_Clear();
        return value;
    }

private:
    PyObject* m_type = nullptr;
    PyObject* m_value = nullptr;
    PyObject* m_traceback = nullptr;
};

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
    PyObject* closed = input ? PyObject_GetAttrString(input, "closed") : nullptr;
    if (closed == Py_True) {
        PyObject* fresh = PyFile_FromFd(0, "<stdin>", "r", -1, "utf-8", nullptr, nullptr, 0);
        if (fresh)
            PySys_SetObject("stdin", fresh);
        Py_XDECREF(fresh);
    }
    Py_XDECREF(closed);
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

void reportMissingModule(FetchedException& exception, CodeEditor* editor)
{
    PyObject* name = exception.attribute("name");
    if (!name) {
        PyErr_SetString(PyExc_AttributeError, "ModuleNotFoundError missing module 'name' attribute. Uh oh");
        printPendingError();
        exception.restore();
        return;
    }
    const QString moduleName = isOfTheLibrary(name) ? QString() : QString::fromStdString(utf8Of(name));
    Py_DECREF(name);
    const bool installed = moduleFinder() && !moduleName.isEmpty() && moduleFinder()(moduleName);
    if (installed) {
        if (editor)
            editor->clearErrors();
    } else {
        exception.restore();
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
    FetchedException exception;
    PyObject* file = exception.attribute("filename");
    PyObject* line = exception.attribute("lineno");
    if (file && line && editor && PyLong_Check(line))
        editor->errorDetected(utf8Of(file), std::string(), PyLong_AsLong(line));
    Py_XDECREF(file);
    Py_XDECREF(line);
    exception.restore();
    printPendingError();
}

RunEnd handleRunTimeError(CodeEditor* editor, int* status)
{
    const GilLock lock;
    PyObject* pending = PyErr_Occurred();
    if (!pending)
        return RunEnd::Finished;
    if (status)
        *status = 1;

    const bool mayOpenAndCloseWindows = isGuiThread();
    // Closing a window may run Python code, which must not find an exception pending.
    PyObject *type = nullptr, *value = nullptr, *traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    if (mayOpenAndCloseWindows)
        closeWhatTheScriptLeftOpen();
    PyErr_Restore(type, value, traceback);

    const bool findModules =
        mayOpenAndCloseWindows && QSettings().value(QStringLiteral("Python/autofind"), true).toBool();
    if (isSyntaxLike(type)) {
        reportSyntaxError(editor);
        PyGC_Collect();
        return RunEnd::Raised;
    }

    if (reportAskedStop()) {
        PyGC_Collect();
        return RunEnd::Stopped;
    }

    FetchedException exception;
    ErrorLocation location;
    if (exception.traceback() && editor) {
        location = innermostLocation(exception.traceback());
        editor->errorDetected(location.file, location.function, location.line);
    }

    if (exception.isA(PyExc_SystemExit)) {
        const int exit = exitStatus(exception.value(), isTerminalProgram());
        if (status)
            *status = exit;
        if (!isTerminalProgram())
            reportSystemExit(location);
        reopenStandardInput();
        PyGC_Collect();
        return exit == 0 ? RunEnd::ExitedZero : RunEnd::ExitedNonZero;
    }
    // A copy: the observer may be replaced while it looks.
    const ErrorObserver observer = errorObserver();
    if (observer && mayOpenAndCloseWindows && !exception.isA(PyExc_KeyboardInterrupt))
        observer(exception.value(), exception.traceback());
    if (exception.isA(PyExc_ModuleNotFoundError) && findModules) {
        reportMissingModule(exception, editor);
        return RunEnd::Raised;
    }
    exception.restore();
    printPendingError();
    PyGC_Collect();
    return RunEnd::Raised;
}

} // namespace python
