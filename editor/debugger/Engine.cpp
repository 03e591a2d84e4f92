#include "editor/debugger/Engine.h"

#include "editor/debugger/BreakpointBuiltin.h"
#include "editor/debugger/Condition.h"
#include "editor/debugger/FrameLayout.h"
#include "host/services/HVEventBus.h"
#include "runtime/GilLock.h"
#include "runtime/PendingError.h"
#include "runtime/RunMonitor.h"

#include <QCoreApplication>

namespace debugger {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("debugger", text);
}

/// "NameError: name 'x' is not defined", for the user.
QString describe(PyObject* exception)
{
    const auto text = python::Ref::steal(PyObject_Str(exception));
    const char* utf8 = text ? PyUnicode_AsUTF8(text.get()) : nullptr;
    const QString message = QString::fromUtf8(utf8 ? utf8 : "");
    PyErr_Clear();
    const QString type = QString::fromUtf8(Py_TYPE(exception)->tp_name);
    return message.isEmpty() ? type : QStringLiteral("%1: %2").arg(type, message);
}

} // namespace

Engine::Engine(PauseHandler& handler, Py_tracefunc trace) : m_handler(handler), m_tracing(*this, trace)
{
    const python::LateGilLock lock;
    if (lock)
        setBreakpointBuiltin(this);
}

Engine::~Engine()
{
    const python::LateGilLock lock;
    if (!lock)
        return;
    m_stepper.cancel();
    m_tracing.stop();
    setBreakpointBuiltin(nullptr);
}

void Engine::setEnabled(bool enabled)
{
    const python::GilLock lock;
    ++m_epoch;
    m_complained = false;
    if (enabled) {
        m_tracing.start();
        return;
    }
    m_stepper.cancel();
    m_tracing.stop();
}

bool Engine::wantsLines(const _PyInterpreterFrame* frame) const
{
    const CodeMarks& marks = marksOf(strativo_frameCode(frame), m_breakpoints);
    return marks.any() || (m_stepper.isActive() && m_stepper.follows(strativo_frameObject(frame), marks));
}

void Engine::outermostFrameLeft()
{
    if (m_stepper.isActive()) {
        m_stepper.cancel();
        ++m_epoch;
    }
    m_breakpoints.setRunTo(std::nullopt);
}

int Engine::traced(PyFrameObject* frame, int event)
{
    if (event != PyTrace_LINE) {
        if (event == PyTrace_RETURN && m_stepper.isActive() && !m_paused) {
            m_stepper.frameLeft(frame);
            ++m_epoch;
        }
        return 0;
    }
    if (m_paused)
        return 0;
    const CodeMarks& marks = marksOf(strativo_objectCode(frame), m_breakpoints);
    const int line = PyFrame_GetLineNumber(frame);
    if (marks.stopsAt(line))
        return reached(frame, line);
    if (m_stepper.isActive() && m_stepper.follows(frame, marks))
        return pause(frame, {});
    return 0;
}

/// A line that holds a breakpoint, or the one to run to.
int Engine::reached(PyFrameObject* frame, int line)
{
    const std::optional<QString> file = fileOf(strativo_objectCode(frame));
    if (!file)
        return 0;
    if (m_breakpoints.isRunTo(*file, line) ||
        (m_stepper.isActive() && m_stepper.follows(frame, marksOf(strativo_objectCode(frame), m_breakpoints))))
        return pause(frame, {});
    const Breakpoints::Map::value_type* breakpoint = m_breakpoints.find(*file, line);
    if (!breakpoint)
        return 0;
    const QString condition = breakpoint->second.condition;
    if (condition.isEmpty())
        return pause(frame, {});
    switch (evaluateCondition(condition, frame)) {
    case ConditionResult::False:
        return 0;
    case ConditionResult::True:
        return pause(frame, {});
    case ConditionResult::Raised:
        break;
    }
    python::PendingError error;
    if (error.isA(PyExc_KeyboardInterrupt))
        return -1; // the user stopped a condition that did not come to an end
    const QString reason = tr("The condition \"%1\" raised %2").arg(condition, describe(error.value()));
    error.drop();
    return pause(frame, reason);
}

bool Engine::canPause(const QString& where)
{
    // While windows are repainted in the middle of a script, input is kept back: nobody could resume.
    if (!m_paused && !python::RunMonitor::isBreathing() && m_handler.canPause())
        return true;
    if (!std::exchange(m_complained, true))
        HVEventBus::instance().sendMessage(
            MessageLevel::Warning, tr("The debugger cannot stop while a window is being painted (%1).").arg(where));
    return false;
}

int Engine::pause(PyFrameObject* frame, const QString& reason)
{
    Pause pause{CallStack::of(frame), reason, false};
    const CallStack::Call& call = pause.stack.calls().front();
    if (!canPause(QStringLiteral("%1:%2").arg(call.file).arg(call.line)))
        return 0;
    m_stepper.cancel();
    m_breakpoints.setRunTo(std::nullopt);
    const std::weak_ptr<void> life = m_life;
    const Resume resume = wait(pause);
    if (!life.expired() && isEnabled()) {
        m_stepper.start(resume, frame);
        ++m_epoch;
        m_tracing.lookAgain();
    }
    if (resume != Resume::Stop)
        return 0;
    PyErr_SetNone(PyExc_KeyboardInterrupt);
    return -1;
}

Resume Engine::wait(const Pause& pause)
{
    const std::weak_ptr<void> life = m_life;
    const python::RunPause quiet;
    m_paused = true;
    const Resume resume = m_handler.paused(pause);
    if (!life.expired())
        m_paused = false;
    PyErr_Clear(); // of code that ran from the event loop
    return resume;
}

void Engine::unhandled(PyObject* value, PyObject* traceback)
{
    if (!isEnabled() || !m_stopsAtExceptions || !m_tracing.isOnThread(PyThreadState_Get()) || !traceback || m_paused)
        return;
    const Pause pause{CallStack::ofTraceback(traceback), describe(value), true};
    if (!pause.stack.isEmpty() && canPause(pause.reason))
        wait(pause);
}

bool Engine::stopAtNextLine()
{
    PyFrameObject* frame = PyEval_GetFrame();
    if (!frame || m_paused || !m_tracing.isOnThread(PyThreadState_Get()))
        return false;
    m_stepper.start(Resume::StepOver, frame);
    ++m_epoch;
    m_tracing.lookAgain();
    return true;
}

} // namespace debugger
