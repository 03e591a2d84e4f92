#include "runtime/HVPythonExecutionContext.h"

#include "host/changes/ChangeLog.h"
#include "host/services/HVEventBus.h"
#include "host/services/IAppWrapper.h"
#include "runtime/ApplicationInterface.h"
#include "runtime/CodeEditor.h"
#include "runtime/Errors.h"
#include "runtime/ForkedChild.h"
#include "runtime/GilLock.h"
#include "runtime/GuiThread.h"
#include "runtime/Interpreter.h"
#include "runtime/PythonPaths.h"
#include "runtime/Ref.h"
#include "runtime/ReplacedBuiltins.h"
#include "runtime/RunMonitor.h"
#include "runtime/RunTimeErrorHandler.h"
#include "runtime/ScriptCompiler.h"
#include "runtime/SpawnByDefault.h"
#include "runtime/StreamCaptureBinding.h"
#include "runtime/TextConversion.h"
#include "runtime/TextSetting.h"

#include <QFileInfo>

using python::GilLock;
using python::RunEnd;

HVPythonExecutionContext::HVPythonExecutionContext(IAppWrapper* app)
{
    python::setApplicationInterface(app);
    python::setGuiThread();
    const std::wstring path = python::utils::ConstructPythonPath();
    HVEventBus::instance().sendMessage(MessageLevel::Success,
                                       QStringLiteral("Python Path: %1").arg(QString::fromStdWString(path)));
    python::readTextSetting();
    python::startInterpreter(path);
    python::ForkedChild::install();
    python::installSpawnByDefault();
    removeDangerousFunctions();

    m_main = PyImport_AddModule("__main__");
    if (!m_main)
        boost::python::throw_error_already_set();
    m_namespace = PyModule_GetDict(m_main);
    installStreamsAndBuiltins();
    // No thread keeps the lock: from here on every entry takes it for itself.
    PyEval_SaveThread();
}

HVPythonExecutionContext::~HVPythonExecutionContext()
{
    m_main = nullptr;
    m_namespace = nullptr;
    // Not a guard: there is no interpreter left to give the lock back to.
    PyGILState_Ensure();
    const IAppWrapper* app = python::applicationInterface();
    // At a terminal scripts end as programs do; a window that was closed goes.
    python::stopInterpreter(app && app->isTerminalProgram() ? python::Patience::Unlimited : python::Patience::Short);
    python::setApplicationInterface(nullptr);
}

void HVPythonExecutionContext::removeDangerousFunctions()
{
    const struct
    {
        const char* module;
        const char* attribute;
    } dangerous[] = {{"os", "_exit"}};
    for (const auto& [moduleName, attribute] : dangerous) {
        const python::Ref module = python::Ref::steal(PyImport_ImportModule(moduleName));
        if (module && PyObject_HasAttrString(module.get(), attribute))
            PyObject_SetAttrString(module.get(), attribute, nullptr);
        PyErr_Clear();
    }
}

void HVPythonExecutionContext::installStreamsAndBuiltins()
{
    python::installReplacedBuiltins();
    python::installStreamCapture(m_main, m_stdout, m_stderr);
    python::RunMonitor::install();
}

bool HVPythonExecutionContext::executePythonCode(const QString& code, python::CodeEditor* editor,
                                                 const QString& fileName) const
{
    const QString text = code.isEmpty() && editor ? editor->plainText() : code;
    m_lastRunEnd = RunEnd::NotRun;
    m_lastExitStatus = 0;
    if (text.isEmpty()) {
        if (editor)
            editor->clearErrors();
        return false;
    }

    const hv::ChangeScope step(python::projectChanges(), QFileInfo(fileName).fileName());
    const GilLock lock;
    python::restoreLostStreams();
    python::Ref program = python::Ref::steal(python::compileScript(text, fileName));
    if (!program) {
        python::reportSyntaxError(editor);
        m_lastRunEnd = RunEnd::CompileError;
        m_lastExitStatus = 1;
        return false;
    }
    return run(editor, fileName,
               [&] { return python::Ref::steal(PyEval_EvalCode(program.get(), m_namespace, m_namespace)); });
}

bool HVPythonExecutionContext::executePythonModule(const QString& name) const
{
    const hv::ChangeScope step(python::projectChanges(), name);
    const GilLock lock;
    return run(nullptr, name, [&name] {
        // What the interpreter's own option calls; it finds the module, also a package's, and tells what is wrong.
        const python::Ref runpy = python::Ref::steal(PyImport_ImportModule("runpy"));
        return runpy ? python::Ref::steal(PyObject_CallMethod(runpy.get(), "_run_module_as_main", "O",
                                                              python::unicodeText(name).ptr()))
                     : python::Ref();
    });
}

bool HVPythonExecutionContext::run(python::CodeEditor* editor, const QString& name,
                                   const std::function<python::Ref()>& execute) const
{
    m_lastRunEnd = RunEnd::NotRun;
    m_lastExitStatus = 0;
    IAppWrapper* app = python::applicationInterface();
    const python::RunMonitor monitor(app ? app->runObserver() : nullptr, name);
    PyGC_Collect();
    python::Ref result = execute();
    if (python::ForkedChild::isHere())
        python::ForkedChild::leave();
    if (!result) {
        m_lastRunEnd = python::handleRunTimeError(editor, &m_lastExitStatus);
        PyErr_Clear();
        return false;
    }
    if (editor)
        editor->clearErrors();
    result.reset();
    PyGC_Collect();
    m_lastRunEnd = RunEnd::Finished;
    return true;
}
