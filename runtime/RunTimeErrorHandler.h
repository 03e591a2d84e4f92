#pragma once

#include "runtime/HVPythonExecutionContext.h"

#include <QString>

#include <functional>

namespace python {

/// Handles the pending exception of code that ran for `editor` (null: for none): closes progress bars and the modal
/// dialog the script left open, marks the line, offers to install a missing module, and reports the error on standard
/// error. Afterwards no exception is pending. Works with or without the interpreter lock, and on any thread, where it
/// only reports: windows and the editor belong to the GUI thread. `status`, when not null, becomes the status that a
/// process would end with.
///
/// A SystemExit is reported on the event bus; for a user at a terminal it shows what plain Python shows.
RunEnd handleRunTimeError(CodeEditor* editor, int* status = nullptr);

/// Marks a pending SyntaxError-like exception in `editor`, prints it and clears it.
void reportSyntaxError(CodeEditor* editor);

/// Offers the user to install the module `name`; true when it is installed now. Without a finder the traceback is
/// printed as for any other exception.
using ModuleFinder = std::function<bool(const QString& name)>;
void setModuleFinder(ModuleFinder finder);

/// Sees every exception that leaves a script, except SystemExit, KeyboardInterrupt and errors of syntax, before it is
/// reported: the debugger shows where it came from. Called with the interpreter lock held and nothing pending;
/// `traceback` may be null. An empty observer removes the last one.
using ErrorObserver = std::function<void(PyObject* value, PyObject* traceback)>;
void setErrorObserver(ErrorObserver observer);

} // namespace python
