// The editor and its file: saving, failures, other programs, drops, sessions, crashes.
#include "editor/NoticeBar.h"
#include "editor/RecoveryCopy.h"
#include "host/kinds/ObjectKind.h"
#include "host/services/HVProjectItemDrag.h"
#include "host/services/HVUserData.h"
#include "host/services/IScriptProject.h"
#include "runtime/ScriptCoding.h"
#include "tests/editor/EditorFixture.h"

#include <QDir>
#include <QDomDocument>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QStandardItemModel>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using fixture::BoxAnswers;
using fixture::contents;
using fixture::write;

class Files : public fixture::EditorTest
{
protected:
    Files() { write(path, "x = 1\r\ny = '\xc3\xa4'\r\n"); }
    bool drop(const QMimeData& dragged)
    {
        QDragEnterEvent enter({100, 50}, Qt::CopyAction, &dragged, Qt::LeftButton, {});
        QCoreApplication::sendEvent(view.viewport(), &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent event({100, 50}, Qt::CopyAction, &dragged, Qt::LeftButton, {});
        QCoreApplication::sendEvent(view.viewport(), &event);
        return event.isAccepted();
    }
};

TEST_F(Files, savesInTheFilesOwnFormAndNothingWhenTheDiskIsFull)
{
    write(folder.filePath(QStringLiteral(".strativo-part-0123456789abcdef")), "left by a killed save");
    ASSERT_TRUE(view.loadFile(path));
    EXPECT_EQ(view.windowTitle(), QStringLiteral("a script.py"));
    EXPECT_FALSE(view.loadFile(folder.path()));
    EXPECT_FALSE(view.loadFile(path + QStringLiteral("x")));
    EXPECT_EQ(view.filename(), path);
    view.moveCursor(QTextCursor::End);
    view.insertPlainText(QStringLiteral("z\u00a0= 2"));
    EXPECT_TRUE(view.saveToFile());
    EXPECT_EQ(contents(path), QByteArray("x = 1\r\ny = '\xc3\xa4'\r\nz\xc2\xa0= 2"));

    // The disk takes no more than eight bytes of a file now.
    type("3");
    rlimit before{}, tight{};
    getrlimit(RLIMIT_FSIZE, &before);
    tight = {8, before.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &tight);
    bool saved = true;
    QStringList asked;
    {
        BoxAnswers box({QMessageBox::Yes, QMessageBox::Ok});
        saved = view.close();
        asked = box.asked;
    }
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_FALSE(saved);
    ASSERT_EQ(asked.size(), 2);
    EXPECT_EQ(asked[0],
              QStringLiteral("Python|This editor contains unsaved changes. Save these changes before closing?"));
    EXPECT_TRUE(asked[1].startsWith(
        QStringLiteral("Python|Unable to save file %1. The following error occurred: <b>").arg(path)));
    EXPECT_TRUE(view.document()->isModified());
    EXPECT_EQ(contents(path), QByteArray("x = 1\r\ny = '\xc3\xa4'\r\nz\xc2\xa0= 2"));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1) << "no remains";
    BoxAnswers box({QMessageBox::Cancel, QMessageBox::No});
    EXPECT_FALSE(view.close());
    EXPECT_TRUE(view.close());
}

TEST_F(Files, codingCommentsHoldForReadingRunningAndSaving)
{
    const std::pair<QByteArray, QByteArray> cases[] = {{"latin-1", "\xe4"},
                                                       {"cp1252", "\x84"},
                                                       {"shift_jis", "\x82\xa0"},
                                                       {"iso8859_15", "\xa4"},
                                                       {"utf8", "\xc3\xa4"}};
    for (const auto& [name, bytes] : cases) {
        const QString letter = *python::decodeText(bytes, name);
        const QByteArray source = "#!/bin/x\r\n# -*- coding: " + name + " -*-\r\n1 / (ord('" + bytes +
                                  "') == " + QByteArray::number(letter.at(0).unicode()) + ")\r\n";
        write(path, source);
        ASSERT_TRUE(view.loadFile(path)) << name.toStdString();
        EXPECT_TRUE(view.findChild<editor::NoticeBar*>()->isHidden()) << name.toStdString() << notice();
        EXPECT_TRUE(run()) << name.toStdString();
        view.moveCursor(QTextCursor::End);
        type("x");
        EXPECT_TRUE(view.saveToFile());
        EXPECT_EQ(contents(path), source + "x") << name.toStdString();
        const auto code = python::decodeScript(contents(path));
        EXPECT_TRUE(code && code->contains(letter)) << name.toStdString();
    }
    const QByteArray before = "# coding: latin-1\nx = 1\n";
    write(path, before);
    ASSERT_TRUE(view.loadFile(path));
    view.moveCursor(QTextCursor::End);
    view.insertPlainText(QStringLiteral("'\u20ac'"));
    {
        BoxAnswers box({QMessageBox::Ok});
        EXPECT_FALSE(view.saveToFile());
        EXPECT_TRUE(box.asked.value(0).contains(QStringLiteral("Line 3 has the character \"\u20ac\"")));
    }
    EXPECT_EQ(contents(path), before);
    EXPECT_TRUE(view.document()->isModified());
    // Without the comment it is UTF-8 that Python reads.
    view.setPlainText(view.plainText().mid(18));
    EXPECT_TRUE(view.saveToFile());
    EXPECT_EQ(contents(path), QByteArray("x = 1\n'\xe2\x82\xac'"));
}

TEST_F(Files, aNewScriptGoesWhereTheProjectSays)
{
    struct Project : IScriptProject
    {
        QString chooseScriptToSave(QWidget*) override { return chosen; }
        void registerScript(const QString& script) override { log << script; }
        void scriptListChanged() override { log << QStringLiteral("list"); }
        QString chosen;
        QStringList log;
    } project;
    IScriptProject::setCurrent(&project);
    view.moveCursor(QTextCursor::Start);
    type("1");
    EXPECT_TRUE(view.saveToFile()) << "cancelling is no failure";
    EXPECT_TRUE(view.document()->isModified());
    project.chosen = folder.filePath(QStringLiteral("missing/new.py"));
    {
        BoxAnswers box({QMessageBox::Ok});
        EXPECT_FALSE(view.saveToFile());
    }
    EXPECT_EQ(view.filename(), QString()) << "nothing was saved there, so the next save asks again";
    EXPECT_EQ(view.windowTitle(), QStringLiteral("Python Editor [EDITED] "));
    project.log.clear();
    project.chosen = folder.filePath(QStringLiteral("new.py"));
    EXPECT_TRUE(view.saveToFile());
    EXPECT_EQ(view.filename(), project.chosen);
    EXPECT_EQ(project.log, (QStringList{project.chosen, project.chosen, QStringLiteral("list")}));
    EXPECT_TRUE(contents(project.chosen).startsWith("1# -*- coding"));
    IScriptProject::setCurrent(nullptr);
}

TEST_F(Files, changesByOtherProgramsAreSeen)
{
    ASSERT_TRUE(view.loadFile(path));
    view.toggleBreakpoint(2);
    write(path, "new\r\nx = 1\r\ny = '\xc3\xa4'\r\n");
    ASSERT_TRUE(QTest::qWaitFor([&] { return text() == "new\nx = 1\ny = '\xc3\xa4'\n"; }, 5000));
    EXPECT_FALSE(view.document()->isModified());
    EXPECT_EQ(view.breakpoints(), std::set<qint32>{3});

    view.goToLine(1);
    type("mine ");
    write(path, "theirs\n");
    ASSERT_TRUE(QTest::qWaitFor([&] { return notice().find("and here as well") != std::string::npos; }, 5000));
    {
        BoxAnswers box({QMessageBox::No});
        EXPECT_FALSE(view.saveToFile());
        EXPECT_EQ(contents(path), QByteArray("theirs\n"));
    }
    view.findChild<editor::NoticeBar*>()->findChildren<QPushButton*>().at(0)->click();
    EXPECT_EQ(text(), "theirs\n");
    view.undo();
    EXPECT_EQ(text().substr(0, 5), "mine ");
    QFile::remove(path);
    ASSERT_TRUE(QTest::qWaitFor([&] { return notice().find("no longer exists") != std::string::npos; }, 5000));
    EXPECT_TRUE(view.saveToFile());
    EXPECT_TRUE(contents(path).startsWith("mine "));
}

TEST_F(Files, dropsBringTextOrScripts)
{
    const QString own = folder.filePath(QStringLiteral("own.py"));
    write(own, "own\n");
    ASSERT_TRUE(view.loadFile(own));
    QMimeData file;
    file.setUrls({QUrl::fromLocalFile(path)});
    EXPECT_TRUE(drop(file));
    EXPECT_EQ(text(), "x = 1\ny = '\xc3\xa4'\n");
    EXPECT_EQ(view.filename(), own);
    EXPECT_EQ(view.windowTitle(), QStringLiteral("own.py [EDITED] "));
    view.undo();
    EXPECT_EQ(text(), "own\n");
    view.redo();
    file.setUrls({QUrl::fromLocalFile(folder.path())});
    {
        BoxAnswers box({QMessageBox::Ok});
        drop(file);
        EXPECT_EQ(box.asked.value(0), QStringLiteral("own.py [EDITED] |Unable to load: %1").arg(folder.path()));
    }
    EXPECT_EQ(text(), "x = 1\ny = '\xc3\xa4'\n");

    QStandardItemModel project(2, 1);
    const auto items = [&](int type, int count) {
        QModelIndexList rows;
        for (int row = 0; row < count; ++row) {
            project.item(row) ? void() : project.setItem(row, new QStandardItem);
            project.item(row)->setData(type, hv::g_objectTypeRole);
            project.item(row)->setData(own, hv::g_objectPathRole);
            rows << project.index(row, 0);
        }
        return std::unique_ptr<QMimeData>(project.mimeData(rows));
    };
    EXPECT_FALSE(drop(*items(29, 1)));
    EXPECT_FALSE(drop(*items(int(ObjectKind::PythonScript), 2)));
    {
        BoxAnswers box({QMessageBox::Yes});
        EXPECT_TRUE(drop(*items(int(ObjectKind::PythonScript), 1)));
    }
    EXPECT_EQ(text(), "own\n");
    EXPECT_FALSE(view.document()->isModified());
    QMimeData words;
    words.setText(QStringLiteral("word"));
    EXPECT_TRUE(drop(words));
    EXPECT_NE(text().find("word"), std::string::npos);
}

TEST_F(Files, aDropAsksBeforeItReplacesUnsavedTextAndUndoBringsThatBack)
{
    setText("");
    type("mine");
    QMimeData file;
    file.setUrls({QUrl::fromLocalFile(path)});
    {
        BoxAnswers box({QMessageBox::No});
        EXPECT_FALSE(drop(file));
        EXPECT_EQ(box.asked,
                  QStringList(QStringLiteral("Python|This editor contains unsaved changes. Replace its text by "
                                             "that of a script.py? Undo brings it back.")));
    }
    EXPECT_EQ(text(), "mine");
    BoxAnswers box({QMessageBox::Yes});
    EXPECT_TRUE(drop(file));
    EXPECT_EQ(text(), "x = 1\ny = '\xc3\xa4'\n");
    EXPECT_EQ(view.filename(), QString());
    view.undo();
    EXPECT_EQ(text(), "mine");
}

TEST_F(Files, sessionsComeBack)
{
    ASSERT_TRUE(view.loadFile(path));
    view.goToLine(2);
    QDomDocument document;
    QDomElement element = document.createElement(QStringLiteral("window"));
    document.appendChild(element);
    HVPythonTextEdit other;
    EXPECT_FALSE(other.LoadObjectSession(element));
    EXPECT_TRUE(view.SaveObjectSession(element));
    const QDomElement own = element.firstChildElement(QStringLiteral("PythonEditorInternal"));
    EXPECT_EQ(own.attribute(QStringLiteral("filename")), path);
    EXPECT_EQ(own.attribute(QStringLiteral("cursorPosition")), QStringLiteral("6"));
    EXPECT_TRUE(other.LoadObjectSession(element));
    EXPECT_EQ(other.filename(), path);
    EXPECT_EQ(other.textCursor().position(), 6);
    write(path, "1");
    EXPECT_TRUE(other.LoadObjectSession(element));
    EXPECT_EQ(other.textCursor().position(), 1);
    QFile::remove(path);
    EXPECT_FALSE(other.LoadObjectSession(element));
}

TEST_F(Files, whatACrashLeftUnsavedComesBack)
{
    const auto leftBehind = [] {
        std::vector<editor::UnsavedText> found;
        editor::RecoveryCopy::restoreLeftBehind([&](const editor::UnsavedText& unsaved) { found.push_back(unsaved); });
        return found;
    };
    leftBehind();
    // A process that ends without a word.
    const pid_t child = fork();
    if (child == 0) {
        editor::RecoveryCopy copy([&] { return editor::UnsavedText{path, QStringLiteral("unsaved \u00e4")}; });
        copy.writeNow();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    editor::RecoveryCopy living([] { return editor::UnsavedText{QString(), QStringLiteral("in use")}; });
    living.writeNow();
    const std::vector<editor::UnsavedText> found = leftBehind();
    ASSERT_EQ(found.size(), 1u) << "not the one of a running application";
    EXPECT_TRUE(leftBehind().empty());
    living.discard();
    EXPECT_TRUE(
        QDir(hv::userDataDirectory() + QStringLiteral("/recovery")).entryList({QStringLiteral("*.json")}).isEmpty());

    view.restoreUnsaved(found[0].path, found[0].text);
    EXPECT_EQ(text(), "unsaved \xc3\xa4");
    EXPECT_TRUE(view.document()->isModified());
    EXPECT_EQ(view.filename(), path);
    view.undo();
    EXPECT_EQ(text(), "x = 1\ny = '\xc3\xa4'\n");
    EXPECT_TRUE(view.saveToFile());
    EXPECT_TRUE(
        QDir(hv::userDataDirectory() + QStringLiteral("/recovery")).entryList({QStringLiteral("*.json")}).isEmpty());
}

} // namespace
