// Projects in the workbench: menu, title, recent ones, the dialog for a new one.
#include "app/workbench/MainWindow.h"
#include "app/workbench/NewProjectDialog.h"
#include "host/data/HVProjectService.h"
#include "host/widgets/HVProjectBrowser.h"

#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

namespace {

using namespace workbench;

QAction* fileAction(MainWindow& window, const char* text)
{
    for (QAction* action : window.menuBar()->actions().first()->menu()->actions())
        if (action->text() == QLatin1String(text))
            return action;
    return nullptr;
}

TEST(Projects, menuTitleAndRecentOnes)
{
    const QTemporaryDir folder;
    HVProjectService::clearRecentProjects();
    ASSERT_TRUE(HVProject::create(folder.filePath("North & Sea"), QString(), nullptr));
    MainWindow window;
    QAction* close = fileAction(window, "Close Project");
    EXPECT_FALSE(close->isEnabled());
    EXPECT_FALSE(window.openProject(folder.filePath("none")));
    EXPECT_EQ(window.windowTitle(), "Strativo");
    EXPECT_TRUE(window.openProject(folder.filePath("North & Sea/project.strativo")));
    EXPECT_EQ(window.windowTitle(), "North & Sea - Strativo");
    EXPECT_TRUE(window.projects()->project()->setName("Renamed"));
    EXPECT_EQ(window.windowTitle(), "Renamed - Strativo");
    EXPECT_FALSE(window.openProject(folder.path())) << "a failure leaves the open one open";
    EXPECT_EQ(window.windowTitle(), "Renamed - Strativo");
    close->trigger();
    EXPECT_EQ(window.projects()->project(), nullptr);
    EXPECT_EQ(window.windowTitle(), "Strativo");

    QMenu* recent = fileAction(window, "Recent Projects")->menu();
    ASSERT_TRUE(recent);
    Q_EMIT recent->aboutToShow();
    EXPECT_EQ(recent->actions().first()->text(), "&1  North && Sea");
    recent->actions().first()->trigger();
    ASSERT_TRUE(window.projects()->project());
    close->trigger();
    QDir(folder.filePath("North & Sea")).removeRecursively();
    recent->actions().first()->trigger();
    EXPECT_TRUE(HVProjectService::recentProjects().isEmpty()) << "what is gone leaves the list";
}

TEST(Projects, theDialogOffersOnlyWhatCanBeMade)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(HVProject::create(folder.filePath("taken"), QString(), nullptr));
    NewProjectDialog dialog(folder.path());
    const QList<QLineEdit*> fields = dialog.findChildren<QLineEdit*>();
    ASSERT_EQ(fields.size(), 3);
    const auto accepts = [&](const char* name, const char* code) {
        fields[0]->setText(QString::fromUtf8(name));
        fields[2]->setText(code);
        return dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->isEnabled();
    };
    EXPECT_FALSE(accepts("", ""));
    EXPECT_FALSE(accepts("taken", ""));
    EXPECT_FALSE(accepts("a/b", ""));
    EXPECT_FALSE(accepts("..", ""));
    EXPECT_FALSE(accepts("new", "999999"));
    EXPECT_TRUE(accepts("new", "EPSG:32631"));
    EXPECT_EQ(dialog.crs().authorityCode(), "32631");
    EXPECT_TRUE(accepts(" N\u00f8rd ", ""));
    EXPECT_TRUE(dialog.crs().isNull());
    EXPECT_EQ(dialog.folder(), folder.filePath("N\u00f8rd"));
    fields[1]->setText(folder.filePath("no such folder"));
    EXPECT_FALSE(accepts("new", ""));
}

} // namespace
