#include "editor/HVPythonDebugger.h"

#include "editor/debugger/BreakpointList.h"
#include "editor/debugger/CallStackList.h"
#include "editor/debugger/PauseWindow.h"
#include "editor/debugger/VariableView.h"
#include "host/icons/HVIconStore.h"
#include "runtime/GilLock.h"
#include "runtime/Ref.h"
#include "runtime/RunTimeErrorHandler.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QEventLoop>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QSplitter>
#include <QTabWidget>
#include <QToolBar>

using debugger::Resume;

namespace {
HVPythonDebugger* g_instance = nullptr;
}

HVPythonDebugger::HVPythonDebugger(QWidget* parent)
    : QFrame(parent), m_engine(*this, &HVPythonDebugger::tracer_fn),
      m_enabled(new QCheckBox(QStringLiteral("Enabled"))), m_continue(new QPushButton(QStringLiteral("Continue"))),
      m_banner(new QLabel), m_calls(new debugger::CallStackList),
      m_breakpoints(new debugger::BreakpointList(m_engine.breakpoints())), m_variables(new debugger::VariableView)
{
    setWindowTitle(QStringLiteral("Python Debugger"));
    setWindowIcon(HVIconStore::icon(QStringLiteral("pythondebug24")));
    m_enabled->setToolTip(tr("Stop scripts at breakpoints and at errors; they run as usual otherwise"));
    m_continue->setEnabled(false);
    m_continue->setIcon(HVIconStore::icon(QStringLiteral("continue_24")));
    m_continue->setToolTip(tr("Let the script go on (F5)"));
    m_banner->setWordWrap(true);
    m_banner->setMargin(4);
    m_banner->setTextFormat(Qt::PlainText);
    m_banner->hide();

    auto* row = new QHBoxLayout;
    row->addWidget(m_enabled);
    row->addWidget(m_continue, 1);
    auto* bar = new QToolBar;
    bar->setIconSize({18, 18});
    makeCommands(bar);
    auto* tabs = new QTabWidget;
    tabs->setDocumentMode(true);
    tabs->addTab(m_calls, tr("Calls"));
    tabs->addTab(m_breakpoints, tr("Breakpoints"));
    auto* halves = new QSplitter(Qt::Vertical);
    halves->addWidget(m_variables);
    halves->addWidget(tabs);
    halves->setStretchFactor(0, 3);
    halves->setStretchFactor(1, 1);
    halves->setChildrenCollapsible(false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addLayout(row);
    layout->addWidget(bar);
    layout->addWidget(m_banner);
    layout->addWidget(halves, 1);

    connect(m_enabled, &QCheckBox::stateChanged, this,
            [this](int state) { m_engine.setEnabled(state == Qt::Checked); });
    connect(m_continue, &QPushButton::clicked, this, [this] { resume(Resume::Continue); });
    connect(m_calls, &debugger::CallStackList::callChosen, this, &HVPythonDebugger::showCall);
    connect(m_breakpoints, &debugger::BreakpointList::placeChosen, this, &HVPythonDebugger::placeChosen);
    connect(m_breakpoints, &debugger::BreakpointList::edited, this, &HVPythonDebugger::breakpointEdited);
    setIsWaiting(false);
    colourBanner();
    g_instance = this;
    python::setErrorObserver([this](PyObject* value, PyObject* traceback) { m_engine.unhandled(value, traceback); });
}

HVPythonDebugger::~HVPythonDebugger()
{
    if (g_instance == this) {
        g_instance = nullptr;
        python::setErrorObserver({});
    }
}

HVPythonDebugger* HVPythonDebugger::instance()
{
    return g_instance;
}

void HVPythonDebugger::makeCommands(QToolBar* bar)
{
    const struct
    {
        const char* icon;
        QString text;
        QString keys;
        QString tip;
        Resume how;
    } commands[] = {
        {"continue_24", tr("Continue"), tr("F5"), tr("Let the script go on"), Resume::Continue},
        {"next_24", tr("Step Over"), tr("F10"), tr("Go to the next line of this function"), Resume::StepOver},
        {"step_into_24", tr("Step Into"), tr("F11"), tr("Go into the function that the line calls"), Resume::StepInto},
        {"step_out_24", tr("Step Out"), tr("Shift+F11"), tr("Go on until the function has returned"), Resume::StepOut},
        {"pythonstop24", tr("Stop"), QString(), tr("End the script with KeyboardInterrupt"), Resume::Stop},
    };
    for (const auto& command : commands) {
        auto* action = new QAction(HVIconStore::icon(QLatin1String(command.icon)), command.text, this);
        action->setShortcut(command.keys);
        action->setToolTip(command.keys.isEmpty() ? command.tip
                                                  : QStringLiteral("%1 (%2)").arg(command.tip, command.keys));
        action->setStatusTip(command.tip);
        connect(action, &QAction::triggered, this, [this, how = command.how] { resume(how); });
        m_commands.append(action);
    }
    // Continue has its button.
    addAction(m_commands.front());
    bar->addActions(m_commands.mid(1));
}

void HVPythonDebugger::addBreakpoint(const QString& file, int line)
{
    m_engine.breakpoints().add(file, line);
    m_breakpoints->refresh();
}

void HVPythonDebugger::removeBreakpoint(const QString& file, int line)
{
    m_engine.breakpoints().remove(file, line);
    m_breakpoints->refresh();
}

debugger::BreakpointSettings HVPythonDebugger::breakpointSettings(const QString& file, int line) const
{
    const auto found = m_engine.breakpoints().all().find({file, line});
    return found == m_engine.breakpoints().all().end() ? debugger::BreakpointSettings() : found->second;
}

void HVPythonDebugger::setBreakpointSettings(const QString& file, int line,
                                             const debugger::BreakpointSettings& settings)
{
    if (breakpointSettings(file, line) == settings)
        return; // perhaps it came from the list, which must not be filled anew while it is edited
    m_engine.breakpoints().setEnabled({file, line}, settings.enabled);
    m_engine.breakpoints().setCondition({file, line}, settings.condition);
    m_breakpoints->refresh();
}

bool HVPythonDebugger::isBreakpointHit(const QString& file, int line) const
{
    return m_engine.breakpoints().contains(file, line);
}

void HVPythonDebugger::runTo(const QString& file, int line)
{
    if (!m_waiting)
        return;
    m_engine.breakpoints().setRunTo(debugger::Place(file, line));
    resume(Resume::Continue);
}

bool HVPythonDebugger::debuggingEnabled() const
{
    return m_enabled->isChecked();
}

void HVPythonDebugger::setDebuggingEnabled(bool enabled)
{
    m_enabled->setChecked(enabled);
}

void HVPythonDebugger::setIsWaiting(bool waiting)
{
    const bool changed = std::exchange(m_waiting, waiting) != waiting;
    m_continue->setEnabled(waiting);
    m_variables->setTreeEnabled(waiting);
    m_calls->setEnabled(waiting);
    for (QAction* action : qAsConst(m_commands))
        action->setEnabled(waiting);
    if (changed)
        Q_EMIT waitingChanged(waiting);
}

void HVPythonDebugger::populateVariables(PyFrameObject* /*frame*/, PyObject* globals, PyObject* locals)
{
    m_variables->setTreeEnabled(true);
    m_variables->populate(globals, locals);
}

void HVPythonDebugger::disableVariablesTree()
{
    m_variables->setTreeEnabled(false);
}

void HVPythonDebugger::resume(Resume how)
{
    if (!m_waiting)
        return;
    m_resume = how;
    m_continue->setEnabled(false);
    if (how == Resume::Continue || how == Resume::Stop)
        Q_EMIT signalContinue();
    else
        Q_EMIT signalNextStep();
}

void HVPythonDebugger::stop()
{
    resume(Resume::Stop);
}

int HVPythonDebugger::tracer_fn(PyObject* /*obj*/, PyFrameObject* frame, int what, PyObject* /*arg*/)
{
    return g_instance ? g_instance->m_engine.traced(frame, what) : 0;
}

bool HVPythonDebugger::canPause() const
{
    // A nested event loop in the middle of a paint event would paint the same widget again.
    const QWidgetList widgets = QApplication::allWidgets();
    return std::none_of(widgets.begin(), widgets.end(),
                        [](const QWidget* widget) { return widget->testAttribute(Qt::WA_WState_InPaintEvent); });
}

Resume HVPythonDebugger::paused(const debugger::Pause& pause)
{
    const QPointer<HVPythonDebugger> self(this);
    QEventLoop loop;
    connect(this, &HVPythonDebugger::signalNextStep, &loop, &QEventLoop::quit);
    connect(this, &HVPythonDebugger::signalContinue, &loop, &QEventLoop::quit);
    connect(this, &QObject::destroyed, &loop, &QEventLoop::quit);
    m_resume = Resume::Continue;
    m_pause = &pause;
    const debugger::CallStack::Call& call = pause.stack.calls().front();
    m_pausedFile = call.file;
    m_pausedLine = call.line;
    Q_EMIT signalBreakpointHit(call.line);
    if (!self)
        return Resume::Continue;
    showPause(pause);
    setIsWaiting(true);
    {
        const debugger::PauseWindow window(this);
        presentToUser();
        loop.exec();
    }
    if (!self)
        return Resume::Continue;
    endPause();
    return self ? m_resume : Resume::Continue;
}

void HVPythonDebugger::showPause(const debugger::Pause& pause)
{
    const debugger::CallStack::Call& call = pause.stack.calls().front();
    const QString place =
        tr("Paused at line %1 of %2").arg(QString::number(call.line), QFileInfo(call.file).fileName());
    m_banner->setText(pause.reason.isEmpty() ? place : QStringLiteral("%1\n%2").arg(place, pause.reason));
    m_banner->show();
    m_calls->show(pause.stack);
    const auto globals = python::Ref::steal(PyFrame_GetGlobals(call.frame.get()));
    const auto locals = python::Ref::steal(PyFrame_GetLocals(call.frame.get()));
    populateVariables(call.frame.get(), globals.get(), locals.get());
    PyErr_Clear();
}

void HVPythonDebugger::endPause()
{
    const QPointer<HVPythonDebugger> self(this);
    m_pause = nullptr;
    m_pausedFile.clear();
    m_pausedLine = -1;
    m_banner->hide();
    m_calls->clear();
    Q_EMIT signalBreakpointHit(-1);
    if (!self)
        return;
    setIsWaiting(false);
    if (!self)
        return;
    disableVariablesTree();
    m_variables->releaseValues();
}

void HVPythonDebugger::showCall(std::size_t index)
{
    if (!m_pause || index >= m_pause->stack.calls().size())
        return;
    const debugger::CallStack::Call& call = m_pause->stack.calls()[index];
    {
        const python::GilLock lock;
        const auto globals = python::Ref::steal(PyFrame_GetGlobals(call.frame.get()));
        const auto locals = python::Ref::steal(PyFrame_GetLocals(call.frame.get()));
        populateVariables(call.frame.get(), globals.get(), locals.get());
        PyErr_Clear();
    }
    Q_EMIT placeChosen(call.file, call.line);
}

void HVPythonDebugger::presentToUser()
{
    show();
    activateWindow();
    raise();
    QApplication::alert(window());
}

void HVPythonDebugger::colourBanner()
{
    const bool dark = palette().color(QPalette::Window).lightness() < 128;
    m_banner->setStyleSheet(dark ? QStringLiteral("background: #5a4300; color: #ffe8ad; font-weight: bold")
                                 : QStringLiteral("background: #ffe39a; color: #3d2c00; font-weight: bold"));
}

void HVPythonDebugger::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        colourBanner();
}

void HVPythonDebugger::closeEvent(QCloseEvent* event)
{
    hide();
    if (auto* document = qobject_cast<QMdiSubWindow*>(parentWidget())) {
        document->setWidget(nullptr);
        setParent(nullptr);
        document->close();
    }
    event->accept();
}
