// The project browser in a real window: what it shows, keeps, drags and changes.
#include "host/data/HVProject.h"
#include "host/jobs/JobManager.h"
#include "host/widgets/HVProjectBrowser.h"
#include "host/widgets/HVProjectCommands.h"
#include "host/widgets/HVProjectModel.h"
#include "host/widgets/ProjectTree.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>
#include <QUrl>

namespace {

class ProjectBrowser : public ::testing::Test
{
protected:
    ProjectBrowser() : project(*HVProject::create(folder.filePath("p"), QString()))
    {
        make(ObjectKind::Horizon3d, {"Top 10", "Top 2", "Base"});
        make(ObjectKind::Well, {"W & 1"});
        EXPECT_TRUE(directories().addDirectory("North", QString()));
        EXPECT_TRUE(directories().addDirectory("Deep", "North"));
        EXPECT_TRUE(directories().fileObjects({"Top 2"}, "Deep"));
        browser.setProject(project.get());
        browser.show();
    }
    void make(ObjectKind kind, const QStringList& names)
    {
        for (const QString& name : names) {
            QFile file(*project->newFilename(kind, name));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        }
    }
    HVVirtualDirectories& directories() { return project->directories(ObjectKind::Horizon3d); }

    /// What can be seen, indented, with counts: "3D Horizons 3 [North 1 [...] Base ]".
    QString shown(const QModelIndex& parent = {})
    {
        const QAbstractItemModel& rows = *browser.view()->model();
        QString text;
        for (int row = 0; row < rows.rowCount(parent); ++row) {
            const QModelIndex index = rows.index(row, 0, parent);
            const QString count = index.sibling(row, 1).data().toString();
            text += index.data().toString() + (count.isEmpty() ? "" : " " + count);
            if (browser.view()->isExpanded(index))
                text += "[" + shown(index) + "]";
            text += row + 1 < rows.rowCount(parent) ? "," : "";
        }
        return text;
    }
    QModelIndex find(const QString& name)
    {
        return browser.view()
            ->model()
            ->match(browser.view()->model()->index(0, 0), Qt::DisplayRole, name, 1,
                    Qt::MatchExactly | Qt::MatchRecursive)
            .value(0);
    }

    QTemporaryDir folder;
    std::unique_ptr<HVProject> project;
    HVProjectBrowser browser;
};

TEST_F(ProjectBrowser, treeFollowsTheProjectAndKeepsItsState)
{
    EXPECT_EQ(shown(), "3D Horizons 3[North 1[Deep 1[Top 2]],Base,Top 10],Wells 1[W & 1]");
    browser.view()->collapse(find("Deep"));
    browser.view()->setCurrentIndex(find("Base"));
    make(ObjectKind::Horizon3d, {"Middle"});
    EXPECT_TRUE(QTest::qWaitFor([&] { return find("Middle").isValid(); }, 2000)) << "a file made by somebody else";
    EXPECT_EQ(shown(), "3D Horizons 4[North 1[Deep 1],Base,Middle,Top 10],Wells 1[W & 1]");
    EXPECT_EQ(browser.view()->selectionModel()->selectedRows().value(0).data().toString(), "Base");

    browser.searchField()->setText("TOP 2");
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown() == "3D Horizons 4[North 1[Deep 1[Top 2]]]"; }, 1000));
    browser.searchField()->setText("north");
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown() == "3D Horizons 4[North 1[Deep 1[Top 2]]]"; }, 1000));
    browser.searchField()->setText("nothing like it");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !browser.view()->isVisible(); }, 1000));
    browser.searchField()->clear();
    EXPECT_TRUE(QTest::qWaitFor([&] { return browser.view()->isVisible(); }, 1000));
    EXPECT_EQ(shown(), "3D Horizons 4[North 1[Deep 1],Base,Middle,Top 10],Wells 1[W & 1]") << "as before the search";

    const auto hint = [&] {
        for (const QLabel* label : browser.findChildren<QLabel*>())
            if (label->isVisible())
                return label->text();
        return QString();
    };
    const auto empty = *HVProject::create(folder.filePath("empty"), QString());
    browser.setProject(empty.get());
    EXPECT_TRUE(hint().contains("The project is empty")) << hint().toStdString();
    browser.setProject(nullptr);
    EXPECT_TRUE(hint().contains("No project is open")) << hint().toStdString();
}

TEST_F(ProjectBrowser, draggedObjectsCarryKindAndFileAndCanBeDropped)
{
    QAbstractItemModel& rows = *browser.view()->model();
    const std::unique_ptr<QMimeData> data(
        rows.mimeData({find("Base"), find("Base").sibling(find("Base").row(), 1), find("North")}));
    ASSERT_TRUE(data);
    const QString path = project->filename(ObjectKind::Horizon3d, "Base");
    EXPECT_EQ(data->urls(), QList<QUrl>{QUrl::fromLocalFile(path)});
    QByteArray encoded = data->data("application/x-qabstractitemmodeldatalist");
    QDataStream stream(&encoded, QIODevice::ReadOnly);
    int row = 0;
    int column = 0;
    QMap<int, QVariant> roles;
    stream >> row >> column >> roles;
    EXPECT_EQ(roles.value(Qt::UserRole + 1).toInt(), 29);
    EXPECT_EQ(roles.value(Qt::UserRole + 2).toString(), path);
    EXPECT_TRUE(stream.atEnd());

    EXPECT_FALSE(rows.canDropMimeData(data.get(), Qt::MoveAction, -1, -1, find("W & 1"))) << "another kind";
    EXPECT_TRUE(rows.dropMimeData(data.get(), Qt::MoveAction, -1, -1, find("Top 2")));
    project->store().tellChanges();
    EXPECT_EQ(directories().directoryOf("Base"), "Deep");
    EXPECT_TRUE(rows.dropMimeData(data.get(), Qt::MoveAction, -1, -1, find("3D Horizons")));
    EXPECT_EQ(directories().directoryOf("Base"), QString());
    QMimeData strange;
    strange.setUrls({QUrl::fromLocalFile("/etc/passwd")});
    EXPECT_FALSE(rows.canDropMimeData(&strange, Qt::CopyAction, -1, -1, find("North")));
}

TEST_F(ProjectBrowser, renamingAndDeleting)
{
    QAbstractItemModel& rows = *browser.view()->model();
    EXPECT_TRUE(rows.setData(find("Top 2"), "Top 3"));
    EXPECT_FALSE(rows.setData(find("Base"), "a/b"));
    EXPECT_TRUE(rows.setData(find("North"), "South"));
    project->store().tellChanges();
    EXPECT_EQ(shown(), "3D Horizons 3[South 1[Deep 1[Top 3]],Base,Top 10],Wells 1[W & 1]");

    qputenv("XDG_DATA_HOME", folder.filePath("share").toUtf8());
    browser.view()->setCurrentIndex(find("Base"));
    for (const auto button : {QMessageBox::No, QMessageBox::Yes}) {
        QTimer::singleShot(0, qApp, [button] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_TRUE(box);
            EXPECT_TRUE(box->text().contains("'Base'"));
            box->button(button)->click();
        });
        QTest::keyClick(browser.view(), Qt::Key_Delete);
        EXPECT_EQ(project->objectNames(ObjectKind::Horizon3d).contains("Base"), button == QMessageBox::No);
    }
    browser.view()->setCurrentIndex(find("Deep"));
    QTest::keyClick(browser.view(), Qt::Key_Delete);
    EXPECT_EQ(directories().directoryOf("Top 3"), "South") << "removing a folder keeps its objects";
    project.reset();
    browser.setProject(nullptr);
}

TEST_F(ProjectBrowser, objectsOfEveryKindAreDuplicatedUnderNamesThatAreFree)
{
    hv::JobManager jobs;
    HVProjectCommands commands(nullptr);
    commands.setProject(project.get());
    commands.setJobs(&jobs);
    const auto duplicate = [&](ObjectKind kind, const QString& name) {
        ProjectNode node{ProjectNode::Type::Object, kind, name, project->filename(kind, name)};
        QMenu menu;
        commands.fillMenu(menu, {&node});
        for (QAction* action : menu.actions())
            if (action->text() == QLatin1String("Duplicate"))
                action->trigger();
    };
    duplicate(ObjectKind::Well, "W & 1");
    duplicate(ObjectKind::Horizon3d, "Top 10");
    duplicate(ObjectKind::Horizon3d, "Top 10");
    EXPECT_EQ(project->objectNames(ObjectKind::Well), QStringList({"W & 1", "W & 1 2"}));
    EXPECT_EQ(project->objectNames(ObjectKind::Horizon3d),
              QStringList({"Base", "Top 2", "Top 10", "Top 10 2", "Top 10 3"}));
    // Large ones by a job, two of them at once.
    ASSERT_TRUE(QFile::resize(project->filename(ObjectKind::Horizon3d, "Base"), 40'000'000));
    duplicate(ObjectKind::Horizon3d, "Base");
    duplicate(ObjectKind::Horizon3d, "Base");
    EXPECT_EQ(jobs.jobs().size(), 2u);
    EXPECT_TRUE(QTest::qWaitFor([&] { return jobs.isIdle(); }, 30000));
    EXPECT_EQ(project->objectNames(ObjectKind::Horizon3d).mid(0, 3), QStringList({"Base", "Base 2", "Base 3"}));
    EXPECT_EQ(QFileInfo(project->filename(ObjectKind::Horizon3d, "Base 3")).size(), 40'000'000);
}

TEST_F(ProjectBrowser, tenThousandObjectsStayQuick)
{
    const QString base = project->folder(ObjectKind::Horizon3d) + "/";
    for (int i = 0; i < 10000; ++i)
        QFile(base + QString("H %1.horizon").arg(i)).open(QIODevice::WriteOnly);
    // Asked anew each time: a row above others may come and go.
    const auto rows = [&] { return browser.view()->model()->rowCount(browser.view()->model()->index(0, 0)); };
    browser.setProject(nullptr);
    QElapsedTimer clock;
    clock.start();
    browser.setProject(project.get());
    browser.view()->expandAll();
    QCoreApplication::processEvents();
    EXPECT_LT(clock.elapsed(), 2000);
    EXPECT_EQ(rows(), 10003);
    int found = 0;
    for (int i = 0; i < 10000; ++i)
        found += QString::number(i).contains("99");
    clock.restart();
    browser.searchField()->setText("99 h");
    EXPECT_TRUE(QTest::qWaitFor([&] { return rows() == found; }, 2000));
    EXPECT_LT(clock.elapsed(), 1000);
    clock.restart();
    browser.searchField()->clear();
    EXPECT_TRUE(QTest::qWaitFor([&] { return rows() == 10003; }, 2000));
    EXPECT_LT(clock.elapsed(), 1000);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
