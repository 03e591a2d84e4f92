// Loading and unloading plug-ins from the Extensions menu.
#include "app/workbench/AppWrapper.h"
#include "app/workbench/MainWindow.h"
#include "app/workbench/PluginMenu.h"
#include "module/ModuleFrame.h"
#include "plugins/HVPythonPluginCollection.h"
#include "runtime/ApplicationInterface.h"
#include "runtime/HVPythonExecutionContext.h"
#include "runtime/PythonPaths.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>

namespace {

using namespace workbench;

class Plugins : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        python::utils::setApplicationDirPath(QCoreApplication::applicationDirPath());
        python::installScripting();
        context = new HVPythonExecutionContext(nullptr);
    }
    static void TearDownTestSuite() { delete context; }

    Plugins() { QSettings().setValue("Python/PluginsDirectory", folder.filePath("found")); }
    ~Plugins() override { QSettings().remove("Python/PluginsDirectory"); }

    void makePlugin(const QString& name, const QByteArray& startup)
    {
        const QDir made(folder.filePath(name));
        made.mkpath(".");
        for (const auto& [file, bytes] :
             {std::pair{"plugin.info", QByteArray("[PluginInfo]\ninit=main.py\n")}, std::pair{"main.py", startup}}) {
            QFile written(made.filePath(file));
            ASSERT_TRUE(written.open(QIODevice::WriteOnly));
            written.write(bytes);
        }
    }
    QMenu* topMenu(const QString& title)
    {
        for (QAction* action : window.menuBar()->actions())
            if (action->text() == title)
                return action->menu();
        return nullptr;
    }
    QAction* entry(const QString& name)
    {
        QMenu* list = nullptr;
        for (QAction* action : topMenu("Extensions")->actions())
            list = action->text() == "Plug-ins" ? action->menu() : list;
        Q_EMIT list->aboutToShow();
        for (QAction* action : list->actions())
            if (action->text() == name)
                return action;
        return nullptr;
    }

    static inline HVPythonExecutionContext* context = nullptr;
    QTemporaryDir folder;
    MainWindow window;
};

TEST_F(Plugins, areLoadedAndUnloadedFromTheMenu)
{
    const QByteArray sound = "import strativo_python as sp\ndef register():\n  sp.addMainWindowMenu('Mine')\n"
                             "  return True\ndef unregister():\n  return True\n";
    AppWrapper app(window);
    python::setApplicationInterface(&app);
    makePlugin("found/R&D", sound);
    makePlugin("found/broken", "def register(): return 3");
    makePlugin("elsewhere", sound);
    {
        HVPythonPluginCollection plugins;
        const PluginMenu menu(window, plugins);
        QAction* sound1 = entry("R&&D");
        ASSERT_TRUE(sound1);
        EXPECT_FALSE(sound1->isChecked());
        sound1->trigger();
        EXPECT_TRUE(topMenu("Mine"));
        EXPECT_TRUE(entry("R&&D")->isChecked());

        QString told;
        QTimer::singleShot(0, qApp, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_TRUE(box);
            told = box->text();
            box->accept();
        });
        entry("broken")->trigger();
        EXPECT_TRUE(told.contains("'register' function MUST return a boolean value")) << told.toStdString();
        EXPECT_FALSE(entry("broken")->isChecked());

        entry("R&&D")->trigger();
        EXPECT_FALSE(topMenu("Mine")) << "what the plug-in forgot is taken away";

        QTimer::singleShot(0, qApp, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            dialog->findChild<QLineEdit*>("fileNameEdit")->setText(folder.filePath("elsewhere"));
            static_cast<QDialog*>(dialog)->accept();
        });
        for (QAction* action : topMenu("Extensions")->actions())
            if (action->text() == "Load Plug-in...")
                action->trigger();
        EXPECT_TRUE(topMenu("Mine"));
        EXPECT_TRUE(entry("elsewhere")->isChecked());
    }
    EXPECT_FALSE(topMenu("Mine"));
    python::setApplicationInterface(nullptr);
}

} // namespace
