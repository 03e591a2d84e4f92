// Documents, menus and what is remembered between sessions.
#include "app/workbench/EmptyWorkspace.h"
#include "app/workbench/MainWindow.h"
#include "app/workbench/RecentScripts.h"
#include "app/workbench/RunIndicator.h"
#include "app/workbench/Theme.h"
#include "editor/HVPythonTextEdit.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QFile>
#include <QHelpEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QScopeGuard>
#include <QSettings>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTimer>
#include <QToolBar>
#include <QToolTip>
#include <QWindow>

#include <unistd.h>

namespace {

using namespace workbench;

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

/// Answers the next message box; the text it had.
void answerNext(QMessageBox::StandardButton button, QString& asked)
{
    QTimer::singleShot(0, qApp, [button, &asked] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        asked = box->text();
        box->button(button)->click();
    });
}

class Documents : public ::testing::Test
{
protected:
    Documents()
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("x = '\xc3\xa4'\nprint(x)\n");
        file.close();
        window.show();
    }
    QAction* menuAction(const char* menu, const char* text)
    {
        for (QAction* top : window.menuBar()->actions())
            if (top->text() == QLatin1String(menu)) {
                Q_EMIT top->menu()->aboutToShow();
                for (QAction* action : top->menu()->actions())
                    if (action->text() == QLatin1String(text))
                        return action;
            }
        return nullptr;
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a script.py"));
    MainWindow window;
};

TEST_F(Documents, openSaveAndCloseKeepTheUsersText)
{
    auto* empty = window.workspace()->findChild<EmptyWorkspace*>();
    EXPECT_TRUE(empty->isVisible());
    HVPythonTextEdit* editor = window.openScript(path);
    ASSERT_TRUE(editor);
    EXPECT_FALSE(empty->isVisible());
    EXPECT_EQ(window.openScript(path), editor) << "one editor per file";
    EXPECT_EQ(window.activeEditor(), editor);
    EXPECT_EQ(editor->windowTitle(), QStringLiteral("a script.py"));
    EXPECT_EQ(window.openScript(folder.filePath(QStringLiteral("missing.py"))), nullptr);
    EXPECT_EQ(window.openScript(folder.path()), nullptr);
    EXPECT_EQ(window.workspace()->subWindowList().size(), 1);

    editor->moveCursor(QTextCursor::End);
    QTest::keyClicks(editor, QStringLiteral("y = 1"));
    EXPECT_TRUE(editor->windowTitle().contains(QStringLiteral("[EDITED]")));
    QString asked;
    answerNext(QMessageBox::Cancel, asked);
    menuAction("Window", "Close")->trigger();
    EXPECT_EQ(asked, QStringLiteral("This editor contains unsaved changes. Save these changes before closing?"));
    EXPECT_EQ(window.activeEditor(), editor);
    EXPECT_EQ(contents(path), QByteArray("x = '\xc3\xa4'\nprint(x)\n"));

    menuAction("File", "Save")->trigger();
    EXPECT_EQ(contents(path), QByteArray("x = '\xc3\xa4'\nprint(x)\ny = 1"));
    QTest::keyClicks(editor, QStringLiteral("2"));
    answerNext(QMessageBox::Yes, asked);
    menuAction("Window", "Close")->trigger();
    EXPECT_TRUE(contents(path).endsWith("y = 12"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.workspace()->subWindowList().isEmpty());
    EXPECT_EQ(recentScripts().value(0), path);
}

TEST_F(Documents, aFailedSaveLosesNothing)
{
    HVPythonTextEdit* editor = window.openScript(path);
    editor->insertPlainText(QStringLiteral("new"));
    editor->setFilename(folder.filePath(QStringLiteral("no such folder/a.py")));
    QString asked;
    answerNext(QMessageBox::Ok, asked);
    EXPECT_FALSE(window.saveScript());
    EXPECT_TRUE(asked.startsWith(QStringLiteral("Unable to save file ")));
    EXPECT_TRUE(editor->document()->isModified());
    window.destroyDocuments();
}

TEST_F(Documents, theEditorsExecuteKeyReachesTheDispatcher)
{
    HVPythonTextEdit* editor = window.openScript(path);
    QObject* target = nullptr;
    window.actionDispatcher().setHandler(QStringLiteral("EXECUTE_PYTHON_IN_EDITOR"),
                                         [&](QObject*, QObject* asked) { target = asked; });
    QTest::keyClick(editor, Qt::Key_F8);
    EXPECT_EQ(target, editor);
}

TEST_F(Documents, menusHaveTheirTitlesAndEveryCommandItsTip)
{
    QStringList titles;
    for (QAction* top : window.menuBar()->actions())
        titles << top->text();
    EXPECT_EQ(titles.join(' '), QStringLiteral("File Edit View Modules Tools Settings Window Help Extensions"));
    for (QAction* action : window.findChildren<QAction*>()) {
        const QString keys = action->shortcut().toString(QKeySequence::NativeText);
        EXPECT_TRUE(action->toolTip().contains(keys)) << action->text().toStdString();
    }
    QAction* sentence = menuAction("Extensions", "Loaded plug-ins put their commands here");
    ASSERT_TRUE(sentence);
    EXPECT_TRUE(sentence->isVisible());
    EXPECT_FALSE(sentence->isEnabled());
    window.menuBar()->actions().last()->menu()->addAction(QStringLiteral("Command"));
    EXPECT_FALSE(menuAction("Extensions", "Loaded plug-ins put their commands here")->isVisible());

    window.openScript(path);
    window.newScript();
    EXPECT_TRUE(menuAction("Window", "Python Editor")->isChecked());
    menuAction("Window", "a script.py")->trigger();
    EXPECT_EQ(window.activeEditor()->filename(), path);
    menuAction("Window", "Close All")->trigger();
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.workspace()->subWindowList().isEmpty(); }, 1000));
    EXPECT_TRUE(window.workspace()->findChild<EmptyWorkspace*>()->isVisible());
    EXPECT_EQ(window.activeEditor(), nullptr);
    EXPECT_FALSE(menuAction("Tools", "Run Script")->isEnabled());
}

TEST_F(Documents, editMenuWorksOnTheScriptAndLeavesItsKeysAlone)
{
    const auto enabled = [&] {
        std::string all;
        for (const char* text :
             {"Find...", "Find Next", "Find Previous", "Replace...", "Go to Line...", "Toggle Comment"})
            all += menuAction("Edit", text)->isEnabled() ? '1' : '0';
        return all;
    };
    EXPECT_EQ(enabled(), "000000");
    HVPythonTextEdit* editor = window.newScript();
    EXPECT_EQ(enabled(), "111111");
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    editor->setPlainText(QStringLiteral("a b\na b\na b\n"));
    const auto position = [&] {
        const QTextCursor cursor = editor->textCursor();
        return QStringLiteral("%1:%2").arg(cursor.blockNumber() + 1).arg(cursor.positionInBlock()).toStdString();
    };

    menuAction("Edit", "Find...")->trigger();
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("b"));
    EXPECT_EQ(position(), "1:3");
    menuAction("Edit", "Find Next")->trigger();
    EXPECT_EQ(position(), "2:3");
    // Keys are sent to the window, as the system does: shortcuts come first, and each works once.
    QWindow* screen = window.windowHandle();
    QTest::keyClick(screen, Qt::Key_F3);
    EXPECT_EQ(position(), "3:3") << "from the search bar";
    editor->setFocus();
    QTest::keyClick(screen, Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(position(), "2:3");
    menuAction("Edit", "Find Previous")->trigger();
    EXPECT_EQ(position(), "1:3");
    QTest::keyClick(screen, Qt::Key_Slash, Qt::ControlModifier);
    EXPECT_EQ(editor->plainText(), QStringLiteral("# a b\na b\na b\n"));
    menuAction("Edit", "Toggle Comment")->trigger();
    EXPECT_EQ(editor->plainText(), QStringLiteral("a b\na b\na b\n"));
    int dialogs = 0;
    QTimer answers;
    QObject::connect(&answers, &QTimer::timeout, [&] {
        if (QWidget* dialog = QApplication::activeModalWidget()) {
            ++dialogs;
            QTest::keyClicks(dialog->focusWidget(), QStringLiteral("2"));
            QTest::keyClick(dialog, Qt::Key_Return);
        }
    });
    answers.start(1);
    QTest::keyClick(screen, Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(position() + " " + std::to_string(dialogs), "2:0 1");
    menuAction("Edit", "Go to Line...")->trigger();
    EXPECT_EQ(dialogs, 2);
    QTest::keyClick(screen, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(window.focusWidget()->metaObject()->className(), std::string("QLineEdit"));
    window.destroyDocuments();
    EXPECT_EQ(enabled(), "000000");
}

TEST_F(Documents, aReadOnlyFileShowsItInItsTab)
{
    // The superuser may write everything; only the user changes here, not the group.
    const auto become = [](uid_t user) { EXPECT_EQ(getuid() == user ? 0 : setresuid(user, user, uid_t(-1)), 0); };
    const uid_t self = getuid();
    const auto back = qScopeGuard([&] { become(self); });
    constexpr QFile::Permissions readable = QFile::ReadOwner | QFile::ReadGroup;
    constexpr QFile::Permissions writable = readable | QFile::WriteOwner | QFile::WriteGroup;
    QFile::setPermissions(folder.path(), writable | QFile::ExeOwner | QFile::ExeGroup);
    const auto allow = [&](QFile::Permissions permissions) {
        become(self);
        QFile::setPermissions(path, permissions);
        become(self == 0 ? 65534 : self);
    };
    allow(readable);
    HVPythonTextEdit* editor = window.openScript(path);
    QMdiSubWindow* document = window.workspace()->subWindowList().first();
    auto* tabs = window.workspace()->findChild<QTabBar*>();
    const auto tip = [&] {
        QHelpEvent help(QEvent::ToolTip, tabs->tabRect(0).center(), QCursor::pos());
        QCoreApplication::sendEvent(tabs, &help);
        return QToolTip::text();
    };
    const auto picture = [&] { return document->windowIcon().pixmap(24).toImage(); };
    const QImage lock = picture();
    EXPECT_EQ(tip(), path + QStringLiteral("\nThis file is read-only."));
    EXPECT_EQ(document->windowTitle(), QStringLiteral("a script.py"));

    allow(writable);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !editor->isFileReadOnly(); }, 5000));
    EXPECT_EQ(tip(), path);
    EXPECT_NE(picture(), lock);
    allow(readable);
    EXPECT_TRUE(QTest::qWaitFor([&] { return editor->isFileReadOnly(); }, 5000));
    EXPECT_EQ(picture(), lock);
    editor->setFilename(QString());
    EXPECT_EQ(tip(), QStringLiteral("a script.py"));
}

TEST_F(Documents, layoutThemeAndRecentScriptsComeBack)
{
    window.restoreLayout();
    window.resize(777, 555);
    window.messageDock()->hide();
    window.toolBar()->hide();
    ASSERT_TRUE(window.close());
    MainWindow next;
    next.restoreLayout();
    next.show();
    EXPECT_EQ(next.size(), QSize(777, 555));
    EXPECT_TRUE(next.messageDock()->isHidden());
    EXPECT_TRUE(next.toolBar()->isHidden());

    applyTheme(Theme::Dark);
    EXPECT_EQ(storedTheme(), Theme::Dark);
    EXPECT_LT(next.palette().color(QPalette::Window).lightness(), 100);
    applyTheme(Theme::Light);
    EXPECT_GT(next.palette().color(QPalette::Window).lightness(), 200);
    applyTheme(Theme::System);

    clearRecentScripts();
    for (int i = 0; i < 12; ++i)
        addRecentScript(folder.filePath(QStringLiteral("%1.py").arg(i)));
    addRecentScript(folder.filePath(QStringLiteral("5.py")));
    EXPECT_EQ(recentScripts().size(), 10);
    EXPECT_TRUE(recentScripts().value(0).endsWith(QStringLiteral("/5.py")));
    EXPECT_EQ(recentScripts().count(recentScripts().value(0)), 1);
}

} // namespace
