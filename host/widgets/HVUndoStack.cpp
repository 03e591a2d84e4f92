#include "host/widgets/HVUndoStack.h"

#include "host/data/HVProject.h"
#include "host/services/HVEventBus.h"

#include <QUndoCommand>

namespace {

constexpr int g_mostSteps = 500;

/// A step on Qt's stack, which makes a command when it is pushed; the step was made before.
class Command final : public QUndoCommand
{
public:
    explicit Command(std::unique_ptr<hv::ChangeStep> step) : m_step(std::move(step))
    {
        setText(m_step->canUndo() ? m_step->text() : HVUndoStack::tr("%1 (cannot be undone)").arg(m_step->text()));
    }

    bool canUndo() const { return m_step->canUndo(); }

    void undo() override { check(m_step->undo(), HVUndoStack::tr("Unable to undo \"%1\": %2")); }
    void redo() override
    {
        if (std::exchange(m_isMade, false))
            return;
        check(m_step->redo(), HVUndoStack::tr("Unable to redo \"%1\": %2"));
    }

private:
    void check(const hv::Result<void>& done, const QString& sentence)
    {
        if (done)
            return;
        HVEventBus::instance().sendMessage(MessageLevel::Error, sentence.arg(m_step->text(), done.failure().sentence),
                                           true);
        setObsolete(true);
    }

    std::unique_ptr<hv::ChangeStep> m_step;
    bool m_isMade = true;
};

} // namespace

HVUndoStack::HVUndoStack(QObject* parent) : QObject(parent)
{
    m_stack.setUndoLimit(g_mostSteps);
    // Its texts and its position change together with one of these.
    connect(&m_stack, &QUndoStack::indexChanged, this, &HVUndoStack::changed);
}

HVUndoStack::~HVUndoStack()
{
    m_stack.disconnect(this);
    setProject(nullptr);
}

void HVUndoStack::setProject(HVProject* project)
{
    if (m_project == project)
        return;
    if (m_project)
        m_project->changes().setSink(nullptr);
    m_stack.clear();
    m_project = project;
    if (project)
        project->changes().setSink(this);
}

bool HVUndoStack::canUndo() const
{
    return m_stack.canUndo() && static_cast<const Command*>(m_stack.command(m_stack.index() - 1))->canUndo();
}

bool HVUndoStack::isBusy() const
{
    return !m_project || m_project->changes().isOpen() || m_project->changes().isReplaying();
}

QStringList HVUndoStack::texts() const
{
    QStringList all;
    for (int step = 0; step < m_stack.count(); ++step)
        all << m_stack.text(step);
    return all;
}

void HVUndoStack::goTo(int position)
{
    if (isBusy())
        return;
    const hv::ChangeReplay replay(m_project->changes());
    // A step that fails leaves the list, so that each turn comes nearer.
    while (m_stack.index() > position && canUndo())
        m_stack.undo();
    while (m_stack.index() < position && canRedo())
        m_stack.redo();
}

void HVUndoStack::add(std::unique_ptr<hv::ChangeStep> step)
{
    m_stack.push(new Command(std::move(step)));
}

void HVUndoStack::undo()
{
    if (isBusy() || !canUndo())
        return;
    const hv::ChangeReplay replay(m_project->changes());
    m_stack.undo();
}

void HVUndoStack::redo()
{
    if (!isBusy()) {
        const hv::ChangeReplay replay(m_project->changes());
        m_stack.redo();
    }
    Q_EMIT changed(); // a step that failed has left the list without moving it
}
