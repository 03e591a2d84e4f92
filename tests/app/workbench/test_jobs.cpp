// Long work in the main window: where it shows and what ends it.
#include "app/workbench/JobsDock.h"
#include "app/workbench/MainWindow.h"
#include "host/data/HVProjectService.h"
#include "host/jobs/JobManager.h"

#include <QFile>
#include <QSemaphore>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

namespace {

using namespace hv;

Result<void> quarterUntilCancelled(JobContext& context)
{
    context.setSteps(4);
    context.advance();
    while (!context.cancelled())
        QThread::msleep(1);
    return JobContext::stopped();
}

class WorkbenchJobs : public ::testing::Test
{
protected:
    JobId start(const QString& name, std::vector<ObjectKey> dependsOn = {})
    {
        return window->jobs()->start({name, std::move(dependsOn)}, quarterUntilCancelled, nullptr,
                                     [this, name](JobState, Result<void>) { ended << name; });
    }

    std::unique_ptr<workbench::MainWindow> window = std::make_unique<workbench::MainWindow>();
    QStringList ended;
};

TEST_F(WorkbenchJobs, TheStatusBarTellsOfJobsAndOpensTheirDock)
{
    window->show();
    EXPECT_FALSE(window->statusBar()->findChild<QToolButton*>());
    EXPECT_FALSE(window->jobsDock()->isVisible());
    start("Fold & Stack");
    auto* button = window->statusBar()->findChild<QToolButton*>();
    ASSERT_TRUE(button);
    EXPECT_TRUE(QTest::qWaitFor([button] { return button->text() == "Fold && Stack 25 %"; }, 20000));
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_TRUE(window->jobsDock()->isVisible());
    start("b");
    EXPECT_EQ(button->text(), "2 jobs");
    window->jobs()->cancelAll();
    EXPECT_TRUE(QTest::qWaitFor([button] { return !button->isVisible(); }, 20000));
}

TEST_F(WorkbenchJobs, JobsOnObjectsEndWithTheProject)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(window->projects()->create(folder.filePath("p"), "p"));
    start("on an object", {{ObjectKind::Well, "A"}});
    start("on nothing");
    window->projects()->close();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !ended.isEmpty(); }, 20000));
    EXPECT_EQ(ended, QStringList("on an object"));
    EXPECT_EQ(window->jobs()->jobs().size(), 1u);
}

TEST_F(WorkbenchJobs, AJobEndsWithTheObjectThatItNeeds)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(window->projects()->create(folder.filePath("p"), "p"));
    HVProject& project = *window->projects()->project();
    for (const char* name : {"A", "B"}) {
        QFile file(*project.newFilename(ObjectKind::Wavelet, name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    start("on A", {{ObjectKind::Wavelet, "A"}});
    start("on B", {{ObjectKind::Wavelet, "B"}});
    ASSERT_EQ(project.objectNames(ObjectKind::Wavelet).size(), 2);
    ASSERT_TRUE(project.removeObject(ObjectKind::Wavelet, "A", HVProject::Removal::Permanent));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !ended.isEmpty(); }, 20000));
    EXPECT_EQ(ended, QStringList("on A"));
}

TEST_F(WorkbenchJobs, TheWindowGoesWhileJobsRun)
{
    window->show();
    window->jobsDock()->show();
    start("a");
    start("b", {{ObjectKind::Well, "A"}});
    window.reset();
    EXPECT_EQ(ended, QStringList());
}

} // namespace
