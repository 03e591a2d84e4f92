// Scripts that come back when the application starts again.
#include "app/workbench/MainWindow.h"
#include "app/workbench/OpenScripts.h"
#include "app/workbench/StubbornScript.h"
#include "editor/HVPythonTextEdit.h"
#include "host/data/HVProjectService.h"
#include "host/services/HVUserData.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextBlock>

namespace {

using namespace workbench;

TEST(OpenScripts, theNextSessionBeginsWhereTheLastEnded)
{
    const QTemporaryDir folder;
    QStringList paths;
    for (const char* name : {"a.py", "b & <b>.py", "gone.py"}) {
        paths << folder.filePath(QString::fromLatin1(name));
        QFile file(paths.last());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("1\n2\n3\n");
    }
    {
        MainWindow window;
        window.show();
        for (const QString& path : paths)
            window.openScript(path);
        window.newScript();
        HVPythonTextEdit* second = window.editors().at(1);
        second->goToLine(3);
        window.showEditor(*second);
        ASSERT_TRUE(window.close());
    }
    QFile::remove(paths.takeLast());
    MainWindow next;
    next.show();
    restoreOpenScripts(next);
    QStringList opened;
    for (const HVPythonTextEdit* editor : next.editors())
        opened << editor->filename();
    EXPECT_EQ(opened.join(' ').toStdString(), paths.join(' ').toStdString());
    ASSERT_TRUE(next.activeEditor());
    EXPECT_EQ(next.activeEditor()->filename(), paths.at(1));
    EXPECT_EQ(next.activeEditor()->textCursor().blockNumber(), 2);

    // A session file of somebody else is no reason not to start.
    QFile session(hv::userDataDirectory() + QStringLiteral("/session.xml"));
    ASSERT_TRUE(session.open(QIODevice::WriteOnly));
    session.write("<session><PythonEditor/>");
    session.close();
    MainWindow last;
    restoreOpenScripts(last);
    EXPECT_TRUE(last.editors().isEmpty());
}

TEST(OpenScripts, whatIsUnsavedIsKeptBeforeTheApplicationIsEndedInTheMiddleOfAScript)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("script.py"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    MainWindow window;
    EXPECT_TRUE(window.projects()->create(folder.filePath(QStringLiteral("project")), QString()));
    window.openScript(path)->insertPlainText(QStringLiteral("typed just now"));
    keepForNextStart(window);
    EXPECT_FALSE(window.projects()->project()) << "closing writes its directories";
    const auto contains = [](const QString& name, const QByteArray& text) {
        QFile kept(hv::userDataDirectory() + name);
        return kept.open(QIODevice::ReadOnly) && kept.readAll().contains(text);
    };
    EXPECT_TRUE(contains(QStringLiteral("/session.xml"), path.toUtf8()));
    const QDir recovery(hv::userDataDirectory() + QStringLiteral("/recovery"));
    const QStringList copies = recovery.entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Time);
    ASSERT_FALSE(copies.isEmpty());
    EXPECT_TRUE(contains(QStringLiteral("/recovery/") + copies.first(), "typed just now"));
}

} // namespace
