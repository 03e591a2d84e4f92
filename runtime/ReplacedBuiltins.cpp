#include "runtime/ReplacedBuiltins.h"

#include "host/services/IAppWrapper.h"
#include "runtime/ApplicationInterface.h"
#include "runtime/Errors.h"
#include "runtime/GilLock.h"
#include "runtime/GuiThread.h"
#include "runtime/HVPythonDocumentation.h"
#include "runtime/Ref.h"
#include "runtime/TextConversion.h"
#include "runtime/UserWindows.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

namespace {

/// The interpreter's own input(); immortal, like the module that it came from.
PyObject* g_originalInput = nullptr;

QString labelOf(const bp::object& prompt)
{
    QString label;
    if (const Ref text = Ref::steal(PyObject_Str(prompt.ptr())))
        textFromPython(text.get(), label);
    PyErr_Clear();
    return label;
}

bp::object input(const bp::object& prompt)
{
    const GilLock lock;
    const IAppWrapper* app = applicationInterface();
    IUserWindows* windows = userWindows();
    if (!windows || (app && app->isTerminalProgram()))
        return owned(PyObject_CallOneArg(g_originalInput, prompt.ptr()));

    requireGuiThread();
    return unicodeText(windows->askForLine(labelOf(prompt)));
}

bp::object help(const bp::object& object)
{
    const GilLock lock;
    if (object.is_none()) {
        requireGuiThread();
        requireWindows();
        HVPythonDocumentation::openIndex();
        return {};
    }
    const Ref pydoc = Ref::steal(PyImport_ImportModule("pydoc"));
    const Ref pydocHelp = Ref::borrow(pydoc ? PyDict_GetItemString(PyModule_GetDict(pydoc.get()), "help") : nullptr);
    PyErr_Clear();
    if (!pydocHelp || pydocHelp.get() == Py_None)
        return {};
    return owned(PyObject_CallOneArg(pydocHelp.get(), object.ptr()));
}

} // namespace

void installReplacedBuiltins()
{
    const bp::object builtins = bp::import("builtins");
    g_originalInput = bp::incref(bp::object(builtins.attr("input")).ptr());

    const bp::scope inBuiltins(builtins);
    const bp::docstring_options docstrings(true, false, false);
    bp::def(
        "input", input, (bp::arg("prompt") = ""),
        "input(prompt: object = '') -> str\n\nAsks the user for a line of text, with a dialog or, in a program on a "
        "terminal, on standard input. Cancelling the dialog gives ''.\n\nRaises RuntimeError on a thread where it can "
        "not "
        "open the dialog.");
    bp::def("help", help, (bp::arg("object") = bp::object()),
            "help(object: object = None) -> object\n\nOpens the scripting documentation, or prints the help on an "
            "object.\n\nRaises "
            "RuntimeError on a thread where it can not open the documentation.");
}

} // namespace python
