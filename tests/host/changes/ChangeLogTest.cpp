// What becomes one step, what it is called, and steps that cannot be taken back.
#include "host/changes/ChangeLog.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace {

using hv::ChangeLog;
using hv::ChangeScope;
using hv::ChangeStep;

/// Appends to a text and takes off again.
class Append final : public hv::Change
{
public:
    Append(QString& text, QChar letter) : m_text(text), m_letter(letter) { m_text += letter; }
    hv::Result<void> undo() override
    {
        if (m_letter == QLatin1Char('!') || !m_text.endsWith(m_letter))
            return hv::Failure(QStringLiteral("Refused."));
        m_text.chop(1);
        return {};
    }
    hv::Result<void> redo() override
    {
        m_text += m_letter;
        return {};
    }

private:
    QString& m_text;
    QChar m_letter;
};

class Log : public ::testing::Test, public hv::IUndoSink
{
protected:
    Log() { log->setSink(this); }
    void add(std::unique_ptr<ChangeStep> step) override { steps.push_back(std::move(step)); }
    void clear() override { steps.clear(); }
    void append(char letter)
    {
        log->record(std::make_unique<Append>(text, QLatin1Char(letter)), QStringLiteral("Append %1").arg(letter));
    }
    QString names() const
    {
        QStringList all;
        for (const auto& step : steps)
            all << QStringLiteral("%1:%2").arg(step->text()).arg(step->size());
        return all.join(QLatin1Char('|'));
    }

    std::vector<std::unique_ptr<ChangeStep>> steps;
    QString text;
    std::unique_ptr<ChangeLog> log = std::make_unique<ChangeLog>(); // tells that it goes
};

TEST_F(Log, nestedScopesAreOneStepAndEmptyOnesAreNone)
{
    append('a');
    {
        const ChangeScope run(log.get(), "script.py");
        const ChangeScope inner(log.get(), QStringLiteral("inner"));
        append('b');
        {
            const ChangeScope callback(log.get(), "callback");
            append('c');
        }
    }
    {
        const ChangeScope nothing(log.get(), "nothing");
    }
    const ChangeScope none(nullptr, "no project");
    EXPECT_EQ(names(), "Append a:1|script.py:2");
    EXPECT_FALSE(log->isOpen());
    EXPECT_TRUE(steps[1]->undo());
    EXPECT_EQ(text, "a");
    EXPECT_TRUE(steps[1]->redo());
    EXPECT_EQ(text, "abc") << "in their order";
}

TEST_F(Log, aStepAskedForByNameStandsForItself)
{
    {
        const ChangeScope run(log.get(), "script.py");
        append('a');
        {
            const ChangeScope step(log.get(), QStringLiteral("Named"), ChangeScope::Kind::Step);
            append('b');
            const ChangeScope within(log.get(), QStringLiteral("Within"), ChangeScope::Kind::Step);
            const ChangeScope callback(log.get(), "callback");
            append('c');
        }
        append('d');
    }
    EXPECT_EQ(names(), "script.py:1|Named:2|script.py:1");

    // One that a run leaves open ends with it.
    auto left = std::make_unique<ChangeScope>(nullptr, "");
    {
        const ChangeScope run(log.get(), "second.py");
        left = std::make_unique<ChangeScope>(log.get(), QStringLiteral("Left"), ChangeScope::Kind::Step);
        append('e');
    }
    append('f');
    left.reset();
    append('g');
    EXPECT_EQ(names(), "script.py:1|Named:2|script.py:1|Left:1|Append f:1|Append g:1");
}

TEST_F(Log, aStepIsTakenBackAsAWholeOrNotAtAll)
{
    {
        const ChangeScope run(log.get(), "run");
        append('a');
        append('!');
        append('b');
    }
    const auto undone = steps[0]->undo();
    ASSERT_FALSE(undone);
    EXPECT_EQ(undone.failure().sentence, "Refused.");
    EXPECT_EQ(text, "a!b");
}

TEST_F(Log, whatIsTooLargeToKeepIsSaidBeforeAndMarked)
{
    log->setMostBytes(1000);
    EXPECT_TRUE(log->keepable(1000, "Volume 'a'"));
    EXPECT_FALSE(log->keepable(1001, "Volume 'a'"));
    {
        const ChangeScope run(log.get(), "run");
        append('a');
        log->recordWithoutUndo("Change 'a'");
    }
    append('b');
    EXPECT_EQ(names(), "run:1|Append b:1");
    EXPECT_FALSE(steps[0]->canUndo());
    EXPECT_TRUE(steps[1]->canUndo());
}

TEST_F(Log, whatIsChangedWhileAStepIsTakenBackIsAStepOfItsOwnAfterwards)
{
    append('a');
    {
        const hv::ChangeReplay replay(*log);
        EXPECT_TRUE(steps[0]->undo());
        append('b');
        {
            const ChangeScope callback(log.get(), "callback");
            append('c');
        }
        EXPECT_EQ(names(), "Append a:1") << "the list of steps is on the move";
    }
    EXPECT_EQ(names(), "Append a:1|Append b:2");
    append('d');
    EXPECT_EQ(names(), "Append a:1|Append b:2|Append d:1");
    const hv::ChangeReplay replay(*log);
    log.reset();
}

TEST_F(Log, aScopeOutlivesItsProject)
{
    const ChangeScope run(log.get(), "run");
    append('a');
    log.reset();
    EXPECT_TRUE(steps.empty());
}

} // namespace
