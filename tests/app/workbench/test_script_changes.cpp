// What scripts and plug-ins do to a project, in the whole workbench: undone by one key, seen at once by who looks.
#include "host/kinds/ObjectPicture.h"
#include "host/viewers/HVPreviewViewer.h"
#include "host/widgets/HVInputSelectionLineEdit.h"
#include "host/widgets/HVInputSelectionPreview.h"
#include "host/widgets/HVProjectBrowser.h"
#include "host/widgets/HVUndoStack.h"
#include "plugins/HVPythonPlugin.h"
#include "tests/app/workbench/WorkbenchFixture.h"
#include "tests/host/data/TestFiles.h"

#include <QMenuBar>
#include <QTreeView>

#include <sys/inotify.h>
#include <unistd.h>

namespace {

const char* const g_makeTen = "from strativo_python import *\n"
                              "def makeTen():\n"
                              "  project = getProject()\n"
                              "  project.addVirtualDirectory(ObjectId.ColorBar, 'Ten', '')\n"
                              "  for i in range(10):\n"
                              "    bar = ColorBar()\n"
                              "    bar.setRange(0, i + 1)\n"
                              "    path = project.getNewFilename(ObjectId.ColorBar, 'bar %d' % i)\n"
                              "    bar.save(path)\n"
                              "    project.setObjectInVirtualDirectory(path, ObjectId.ColorBar, 'Ten')\n";

class ScriptChanges : public fixture::Workbench
{
protected:
    ScriptChanges() { openProject(); }

    HVProject& project() { return *window.projects()->project(); }
    QTreeView& browser() { return *window.projectBrowser()->view(); }
    /// Every object with its content, and the directory that it is filed in.
    QStringList state()
    {
        QStringList all = project().directories(ObjectKind::ColorBar).directories();
        for (const QString& path : project().objects())
            all << path + readFile(path) +
                       (project().objectsInDirectory(ObjectKind::ColorBar, "Ten").contains(path) ? "filed" : "");
        return all;
    }
    void expectOneStepThatUndoTakesBack(const QStringList& before)
    {
        const QStringList after = state();
        EXPECT_EQ(project().objects().size(), 10);
        EXPECT_EQ(window.projectUndo()->texts().size(), 1) << window.projectUndo()->texts().join('|').toStdString();
        browser().setFocus();
        QTest::keyClick(window.windowHandle(), Qt::Key_Z, Qt::ControlModifier);
        EXPECT_TRUE(state() == before) << state().join('|').toStdString();
        EXPECT_EQ(window.projectUndo()->position(), 0);
        window.projectUndo()->redo();
        EXPECT_TRUE(state() == after) << state().join('|').toStdString();
    }
};

TEST_F(ScriptChanges, aScriptThatChangesTenObjectsIsTakenBackByOneKey)
{
    const QStringList before = state();
    EXPECT_EQ(runText((std::string(g_makeTen) + "makeTen()\n").c_str()), "The script has finished.")
        << recorder.textOf(6);
    expectOneStepThatUndoTakesBack(before);
}

TEST_F(ScriptChanges, soIsACallbackOfAPlugIn)
{
    writeFile(folder.filePath("ten/plugin.info"), "[PluginInfo]\ninit=main.py\n");
    writeFile(folder.filePath("ten/main.py"), QByteArray(g_makeTen) +
                                                  "def register():\n"
                                                  "  addMainWindowMenu('Ten').addAction('Make', makeTen)\n"
                                                  "  return True\n"
                                                  "def unregister():\n"
                                                  "  removeMainWindowMenu('Ten')\n"
                                                  "  return True\n");
    HVPythonPlugin* plugin = *plugins.add(folder.filePath("ten"));
    ASSERT_TRUE(plugins.load(*plugin)) << recorder.textOf(6);
    const QStringList before = state();
    for (QAction* menu : window.menuBar()->actions())
        if (menu->text() == "Ten")
            menu->menu()->actions().first()->trigger();
    expectOneStepThatUndoTakesBack(before);
    plugins.unload(*plugin);
}

TEST_F(ScriptChanges, aColourBarOfAScriptRedrawsAllPreviewsWithoutTheDisk)
{
    ASSERT_EQ(runText("from strativo_python import *\n"
                      "path = getProject().getNewFilename(ObjectId.ColorBar, 'Bar')\n"
                      "ColorBar().save(path)"),
              "The script has finished.");
    const QString path = project().objects().value(0);
    HVInputSelectionPreview previews[2];
    for (HVInputSelectionPreview& preview : previews) {
        preview.resize(400, 300);
        preview.show();
        preview.selection()->setObject(path);
        ASSERT_TRUE(preview.viewer()->picture());
    }
    const auto color = [](const HVInputSelectionPreview& preview) {
        HVPreviewViewer& viewer = *preview.viewer();
        const QPoint middle = viewer.pageToViewer().map(QPointF(128, 20)).toPoint();
        return QColor(viewer.grab().toImage().pixel(middle)).name();
    };
    EXPECT_NE(color(previews[0]), "#ff0000");
    ASSERT_EQ(runText("import os\n"
                      "os.remove(path)\n"
                      "bar = ColorBar()\n"
                      "bar.colors = [(255, 0, 0, 255)]\n"
                      "bar.save(path)"),
              "The script has finished.")
        << recorder.textOf(6);
    const int log = inotify_init1(IN_NONBLOCK);
    inotify_add_watch(log, QFile::encodeName(path).constData(), IN_OPEN | IN_ACCESS);
    inotify_add_watch(log, QFile::encodeName(QFileInfo(path).path()).constData(), IN_OPEN | IN_ACCESS);
    const int readings = project().store().readings();
    for (const HVInputSelectionPreview& preview : previews)
        EXPECT_TRUE(QTest::qWaitFor([&] { return color(preview) == "#ff0000"; })) << color(preview).toStdString();
    char events[4096];
    EXPECT_LT(read(log, events, sizeof events), 0) << "a file was read";
    EXPECT_EQ(project().store().readings(), readings);
    ::close(log);
}

} // namespace
