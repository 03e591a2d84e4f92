#pragma once

#include "host/services/HVEventBus.h"
#include "host/services/HVProgressBarMgr.h"
#include "host/services/IAppWrapper.h"
#include "runtime/CodeEditor.h"
#include "runtime/HVPythonExecutionContext.h"
#include "runtime/TextSetting.h"

#include <functional>
#include <gtest/gtest.h>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

/// The whole program shares one interpreter, as an application does; main() is in RuntimeFixture.cpp.
namespace fixture {

class FakeApp : public IAppWrapper, public IRunObserver
{
public:
    QMainWindow* mainWindow() const override { return window; }
    HVMessageWindow* messageWindow() const override { return nullptr; }
    IProgressService* progressService() const override { return progress.get(); }
    IRunObserver* runObserver() const override { return observes ? const_cast<FakeApp*>(this) : nullptr; }
    QString version() const override { return QStringLiteral("1.2.3"); }
    bool isTerminalProgram() const override { return terminal; }
    HVProject* currentProject() const override { return project; }
    hv::ChangeLog* projectChanges() const override { return changes; }
    void refreshProject(std::optional<int> kind) override
    {
        log.push_back("project " + (kind ? std::to_string(*kind) : std::string("all")));
    }
    void refreshPalettes() override { log.push_back("palettes"); }
    QMdiSubWindow* addSubWindow(QWidget* widget) override { return onSubWindow ? onSubWindow(widget) : nullptr; }

    void runStarted(const QString& fileName) override { log.push_back("started " + fileName.toStdString()); }
    bool breathe() override
    {
        ++breaths;
        return onBreath ? onBreath() : false;
    }
    void runFinished() override { log.push_back("finished"); }

    QMainWindow* window = nullptr;
    std::function<QMdiSubWindow*(QWidget*)> onSubWindow;
    bool terminal = false;
    HVProject* project = nullptr;
    hv::ChangeLog* changes = nullptr;
    std::shared_ptr<HVProgressBarMgr> progress = std::make_shared<HVProgressBarMgr>();
    bool observes = false;
    int breaths = 0;
    std::function<bool()> onBreath;
    std::vector<std::string> log;
};

class FakeEditor : public python::CodeEditor
{
public:
    void errorDetected(std::string filename, std::string function, long line) override
    {
        file = std::move(filename);
        inFunction = std::move(function);
        markedLine = line;
    }
    void clearErrors() override
    {
        markedLine = -1;
        ++clears;
    }
    QString plainText() const override { return text; }

    QString text;
    std::string file, inFunction;
    long markedLine = -1;
    int clears = 0;
};

/// What was posted on the event bus, in order.
class Recorder final : public HVEventBus::Sink
{
public:
    struct Post
    {
        int level;
        std::string text;
        bool reveal;
        bool operator==(const Post&) const = default;
    };

    Recorder() { HVEventBus::instance().addSink(this); }
    ~Recorder() { HVEventBus::instance().removeSink(this); }
    void receive(const HVEventBus::Message& m) override { posts.push_back({m.level, std::string(m.text), m.reveal}); }

    /// All texts of one level, joined.
    std::string textOf(int level) const
    {
        std::string joined;
        for (const Post& post : posts)
            joined += post.level == level ? post.text : std::string();
        return joined;
    }

    std::vector<Post> posts;
};

class RuntimeTest : public testing::Test
{
protected:
    RuntimeTest() { python::setTextsWhole(false); }

    bool run(const char* code, python::CodeEditor* forEditor = nullptr)
    {
        return context().executePythonCode(QString::fromUtf8(code), forEditor, QStringLiteral("script.py"));
    }
    void TearDown() override { app() = FakeApp(); }

    static FakeApp& app();
    static const HVPythonExecutionContext& context();

    Recorder recorder;
    FakeEditor editor;
};

} // namespace fixture
