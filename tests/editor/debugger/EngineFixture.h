#pragma once

#include "editor/debugger/Engine.h"
#include "runtime/GilLock.h"
#include "runtime/RunTimeErrorHandler.h"
#include "tests/runtime/RuntimeFixture.h"

namespace fixture {

/// The engine with a script of answers in place of the panel; scripts run in the real interpreter.
class EngineTest : public RuntimeTest, public debugger::PauseHandler
{
protected:
    using Resume = debugger::Resume;

    void SetUp() override
    {
        engine = std::make_unique<debugger::Engine>(*this, &EngineTest::trace);
        current = this;
        python::setErrorObserver([this](PyObject* value, PyObject* traceback) {
            if (engine)
                engine->unhandled(value, traceback);
        });
        engine->setEnabled(true);
    }
    void TearDown() override
    {
        python::setErrorObserver({});
        engine.reset();
        current = nullptr;
        RuntimeTest::TearDown();
    }

    bool canPause() const override { return true; }
    Resume paused(const debugger::Pause& pause) override
    {
        const auto& call = pause.stack.calls().front();
        stops += call.function.toStdString() + ":" + std::to_string(call.line) + " ";
        reason = pause.reason.toStdString();
        depth = pause.stack.calls().size();
        const Resume answer = answers.empty() ? Resume::Continue : answers.front();
        if (!answers.empty())
            answers.erase(answers.begin());
        if (onPause)
            onPause(pause);
        return answer;
    }

    /// Where the script stopped, as "function:line " each.
    std::string stopsOf(const char* code, std::vector<int> lines, std::vector<Resume> replies = {})
    {
        for (const int line : lines)
            engine->breakpoints().add(QStringLiteral("script.py"), line);
        answers = std::move(replies);
        stops.clear();
        succeeded = run(code);
        return stops;
    }

    static int trace(PyObject*, PyFrameObject* frame, int event, PyObject*)
    {
        ++current->events;
        return current->engine ? current->engine->traced(frame, event) : 0;
    }

    std::unique_ptr<debugger::Engine> engine;
    std::vector<Resume> answers;
    std::function<void(const debugger::Pause&)> onPause;
    std::string stops, reason;
    std::size_t depth = 0;
    bool succeeded = false;
    int events = 0;

private:
    static inline EngineTest* current = nullptr;
};

} // namespace fixture
