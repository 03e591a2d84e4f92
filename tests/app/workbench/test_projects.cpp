// Projects in the workbench: menu, title, recent ones, the dialog for a new one.
#include "app/workbench/AppWrapper.h"
#include "app/workbench/MainWindow.h"
#include "app/workbench/NewProjectDialog.h"
#include "editor/HVPythonTextEdit.h"
#include "host/data/HVProjectService.h"
#include "host/display/ColorBar.h"
#include "host/widgets/HVProjectBrowser.h"
#include "host/widgets/HVProjectModel.h"
#include "host/widgets/HVUndoStack.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>

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
    ASSERT_TRUE(HVProject::create(folder.filePath("North & Sea"), QString()));
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

TEST(Projects, scriptsRefreshTheColourBars)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(HVProject::create(folder.filePath("Field"), QString()));
    MainWindow window;
    AppWrapper application(window);
    application.refreshPalettes(); // without a project there are none
    ASSERT_TRUE(window.openProject(folder.filePath("Field")));
    QSignalSpy changes(&window.projects()->project()->store(), &hv::ObjectStore::listingReset);
    application.refreshPalettes();
    ASSERT_TRUE(changes.wait(2000));
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].value<ObjectKind>(), ObjectKind::ColorBar);
}

TEST(Projects, undoInTheBrowserBringsBackWhatWasDeletedThere)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(HVProject::create(folder.filePath("Field"), QString()));
    MainWindow window;
    window.restoreLayout();
    window.show();
    ASSERT_TRUE(window.openProject(folder.filePath("Field")));
    HVProject& project = *window.projects()->project();
    ASSERT_TRUE(project.store().create({ObjectKind::ColorBar, "Red"}, hv::ObjectValue::of(display::ColorBar())));
    project.store().tellChanges();
    QTreeView& view = *window.projectBrowser()->view();
    view.expandAll();
    view.setFocus();
    QApplication::setActiveWindow(&window);
    view.setCurrentIndex(view.model()->index(0, 0, view.model()->index(0, 0)));
    QTimer::singleShot(0, qApp, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        box->button(QMessageBox::Yes)->click();
    });
    QTest::keyClick(&view, Qt::Key_Delete);
    EXPECT_TRUE(project.objects().isEmpty());
    window.activateWindow(); // which the question was in front of
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    view.setFocus();
    const auto edit = [&](const char* text) {
        for (QAction* menu : window.menuBar()->actions())
            for (QAction* action : menu->text() == "Edit" ? menu->menu()->actions() : QList<QAction*>())
                if (action->text() == QLatin1String(text))
                    action->trigger();
    };
    edit("Undo");
    EXPECT_EQ(project.objectNames(ObjectKind::ColorBar), QStringList{"Red"});
    edit("Redo");
    EXPECT_TRUE(project.objects().isEmpty());
    EXPECT_EQ(window.projectUndo()->texts().join('|'), "Create Color Bar 'Red'|Delete 'Red'");

    // A text has an undo of its own.
    HVPythonTextEdit* editor = window.newScript();
    editor->setFocus();
    const QString before = editor->plainText();
    editor->insertPlainText("x");
    ASSERT_EQ(QApplication::focusWidget(), editor);
    edit("Undo");
    EXPECT_EQ(editor->plainText(), before);
    EXPECT_TRUE(project.objects().isEmpty());
    editor->document()->setModified(false);
}

TEST(Projects, scriptsBelongToTheOpenProject)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(HVProject::create(folder.filePath("Field"), QString()));
    MainWindow window;
    QMenu* scripts = fileAction(window, "Project Scripts")->menu();
    const auto shown = [&] {
        Q_EMIT scripts->aboutToShow();
        QStringList texts;
        for (const QAction* action : scripts->actions())
            texts << action->text();
        return texts.join('|').toStdString();
    };
    EXPECT_EQ(shown(), "No project is open");
    ASSERT_TRUE(window.openProject(folder.filePath("Field")));
    EXPECT_EQ(shown(), "The project has no scripts yet");
    window.show();

    // A new script is offered a place and a name in the project.
    HVProject& project = *window.projects()->project();
    const QString path = project.filename(ObjectKind::PythonScript, "Script");
    QSignalSpy changes(&project.store(), &hv::ObjectStore::told);
    HVPythonTextEdit* editor = window.newScript();
    editor->setPlainText("x = 1\n");
    QTimer answers;
    QObject::connect(&answers, &QTimer::timeout, [] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (auto* overwrite = qobject_cast<QMessageBox*>(dialog))
            overwrite->button(QMessageBox::Yes)->click();
        else if (dialog)
            QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
    });
    answers.start(10);
    EXPECT_TRUE(window.saveScript());
    EXPECT_EQ(editor->filename(), path);
    EXPECT_EQ(shown(), "&1  Script.py");
    EXPECT_TRUE(changes.count() > 0 || changes.wait(2000)) << "the browser lists the scripts anew";
    editor->setPlainText("x = 2\n");
    EXPECT_TRUE(window.saveScriptAs()) << "beginning at its own name";
    answers.stop();

    // Dragged from the browser into another editor it is loaded as itself.
    HVPythonTextEdit* other = window.newScript();
    HVProjectModel model;
    model.setProject(&project);
    const QModelIndexList rows =
        model.match(model.index(0, 0), hv::g_objectPathRole, path, 1, Qt::MatchExactly | Qt::MatchRecursive);
    ASSERT_EQ(rows.size(), 1);
    const std::unique_ptr<QMimeData> dragged(model.mimeData(rows));
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, dragged.get(), Qt::LeftButton, {});
    QCoreApplication::sendEvent(other->viewport(), &enter);
    QDropEvent drop({50, 50}, Qt::CopyAction, dragged.get(), Qt::LeftButton, {});
    QCoreApplication::sendEvent(other->viewport(), &drop);
    EXPECT_EQ(other->filename(), path);
    EXPECT_EQ(other->plainText(), "x = 2\n");
    EXPECT_FALSE(other->document()->isModified());

    window.projects()->close();
    EXPECT_EQ(shown(), "No project is open");
}

TEST(Projects, theDialogOffersOnlyWhatCanBeMade)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(HVProject::create(folder.filePath("taken"), QString()));
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
