#pragma once

#include "app/workbench/AppWrapper.h"
#include "app/workbench/DebuggerDock.h"
#include "app/workbench/MainWindow.h"
#include "app/workbench/PluginMenu.h"
#include "app/workbench/ScriptRunner.h"
#include "editor/HVPythonTextEdit.h"
#include "host/data/HVProjectService.h"
#include "plugins/HVPythonPluginCollection.h"
#include "runtime/ApplicationInterface.h"
#include "tests/runtime/RuntimeFixture.h"

#include <QStatusBar>
#include <QTemporaryDir>
#include <QtTest>

namespace fixture {

/// The workbench as the program puts it together, on the screen, with the interpreter behind it.
class Workbench : public RuntimeTest
{
protected:
    Workbench()
    {
        python::setApplicationInterface(&application);
        window.restoreLayout();
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    ~Workbench() override
    {
        window.destroyDocuments();
        python::setApplicationInterface(&app());
    }

    void openProject()
    {
        ASSERT_TRUE(HVProject::create(folder.filePath(QStringLiteral("Field")), QString()));
        ASSERT_TRUE(window.openProject(folder.filePath(QStringLiteral("Field"))));
    }
    /// The status bar's text after the run.
    QString runText(const char* code)
    {
        HVPythonTextEdit* script = window.newScript();
        script->setPlainText(QString::fromUtf8(code));
        script->execute();
        return window.statusBar()->currentMessage();
    }

    QTemporaryDir folder;
    workbench::MainWindow window;
    workbench::AppWrapper application{window};
    workbench::ScriptRunner runner{window, context()};
    HVPythonPluginCollection plugins;
    workbench::PluginMenu pluginMenu{window, plugins};
    workbench::DebuggerDock* dock = new workbench::DebuggerDock(window);
};

} // namespace fixture
