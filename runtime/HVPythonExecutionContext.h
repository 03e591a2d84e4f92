#pragma once

#include "runtime/HVPythonStreamCapture.h"
#include "runtime/Ref.h"

#include <boost/python/detail/wrap_python.hpp>

#include <QString>

#include <functional>

class IAppWrapper;

namespace python {
class CodeEditor;

/// How the last run ended; the functions that run something tell only whether it reached its end.
enum class RunEnd
{
    Finished,
    NotRun,       ///< there was no code
    CompileError, ///< nothing of the script was executed
    Raised,
    Stopped,       ///< the user asked for it
    ExitedZero,    ///< SystemExit whose code means success (None, 0)
    ExitedNonZero, ///< SystemExit with any other code
};
} // namespace python

/// runtime: the life of the embedded interpreter, its paths, the execution context, captured streams, documentation
/// access; and the only home of the raw C API: lock guards, error raising, argument checks, conversions.

/// The single owner of the interpreter and of `__main__`. Made once per process, on the GUI thread, after
/// python::utils::setApplicationDirPath(); a finalised interpreter is not started again.
///
/// After construction no thread holds the interpreter lock.
class HVPythonExecutionContext
{
public:
    /// Starts the interpreter. `app` is not owned and outlives the context; null is a host without services.
    explicit HVPythonExecutionContext(IAppWrapper* app);

    /// Finalises the interpreter. Threads that still run Python code are asked to end and then left behind.
    ~HVPythonExecutionContext();

    HVPythonExecutionContext(const HVPythonExecutionContext&) = delete;
    /// Copies the members as they stand; there is still one interpreter.
    HVPythonExecutionContext& operator=(const HVPythonExecutionContext&) = default;

    /// Runs `code` in `__main__`; true when it ran to its end without an exception. An empty `code` means the whole
    /// text of `editor`. Errors are marked in `editor` (which may be null) and reported on standard error; they never
    /// leave this function. `fileName` is the name under which the code is compiled.
    bool executePythonCode(const QString& code, python::CodeEditor* editor, const QString& fileName) const;

    /// Runs a module that the interpreter finds by its name, as `python -m` does: a package's `__main__`, with the
    /// module's file as sys.argv[0]. Otherwise as executePythonCode().
    bool executePythonModule(const QString& name) const;

    /// How the last run ended.
    python::RunEnd lastRunEnd() const { return m_lastRunEnd; }

    /// The status that a process of its own would have ended the last run with: 0, 1, or what sys.exit() was given.
    int lastExitStatus() const { return m_lastExitStatus; }

private:
    /// `execute` gives the result, or nothing with an exception pending. With the lock.
    bool run(python::CodeEditor* editor, const QString& name, const std::function<python::Ref()>& execute) const;
    void removeDangerousFunctions();
    void installStreamsAndBuiltins();

    PyObject* m_main = nullptr;
    PyObject* m_namespace = nullptr;
    HVPythonStreamCapture m_stdout{true};
    HVPythonStreamCapture m_stderr{false};
    mutable python::RunEnd m_lastRunEnd = python::RunEnd::NotRun;
    mutable int m_lastExitStatus = 0;
};
