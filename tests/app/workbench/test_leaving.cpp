// What happens to unsaved scripts, and to windows of scripts, when documents and the main window close.
#include "app/workbench/MainWindow.h"
#include "app/workbench/ScriptName.h"
#include "app/workbench/UnsavedScriptsDialog.h"
#include "editor/HVPythonTextEdit.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace {

using namespace workbench;

/// A document or window that counts what it is asked and answers as it is told.
class Stubborn : public QWidget
{
public:
    int asked = 0;
    bool refuses = true;

protected:
    void closeEvent(QCloseEvent* event) override
    {
        ++asked;
        event->setAccepted(!refuses);
    }
};

class Leaving : public ::testing::Test
{
protected:
    Leaving()
    {
        for (const char* name : {"first.py", "clean.py", "last.py"}) {
            QFile file(folder.filePath(QString::fromLatin1(name)));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
            file.write("old");
        }
        window.show();
        first = edited("first.py");
        clean = window.openScript(path("clean.py"));
        last = edited("last.py");
        window.showEditor(*clean);
        // Whatever is asked, and how often, stands in `questions`; what nobody answers is cancelled.
        QObject::connect(&answers, &QTimer::timeout, [this] { answer(); });
        answers.start(1);
    }
    ~Leaving() override
    {
        answers.stop();
        window.destroyDocuments();
    }

    QString path(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }
    QByteArray contents(const char* name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    HVPythonTextEdit* edited(const char* name)
    {
        HVPythonTextEdit* editor = window.openScript(path(name));
        editor->selectAll();
        editor->insertPlainText(QStringLiteral("new"));
        return editor;
    }
    void answer()
    {
        QWidget* asking = QApplication::activeModalWidget();
        if (auto* unsaved = dynamic_cast<UnsavedScriptsDialog*>(asking)) {
            const auto* names = unsaved->findChild<QListWidget*>();
            QStringList listed;
            for (int i = 0; i < names->count(); ++i)
                listed << names->item(i)->text();
            questions << listed.join(QLatin1Char(' '));
            if (reply == QDialogButtonBox::NoButton)
                QTest::keyClick(unsaved, Qt::Key_Escape);
            else
                unsaved->findChild<QDialogButtonBox*>()->button(reply)->click();
        } else if (asking) {
            questions << asking->windowTitle() + QStringLiteral(" of ") + tabTitle(*window.activeEditor()).trimmed();
            static_cast<QDialog*>(asking)->reject();
        }
    }
    std::string asked() const { return questions.join(QLatin1Char('|')).toStdString(); }
    void expectAllAsBefore()
    {
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(window.editors(), (QList<HVPythonTextEdit*>{first, clean, last}));
        EXPECT_EQ(window.activeEditor(), clean);
        EXPECT_TRUE(first->document()->isModified() && last->document()->isModified());
        EXPECT_EQ(contents("first.py") + contents("last.py"), "oldold");
    }

    QTemporaryDir folder;
    MainWindow window;
    HVPythonTextEdit *first = nullptr, *clean = nullptr, *last = nullptr;
    QStringList questions;
    QDialogButtonBox::StandardButton reply = QDialogButtonBox::NoButton;
    QTimer answers;
};

TEST_F(Leaving, oneQuestionForAllScriptsAndEscapeLeavesEverythingAsItWas)
{
    const std::string both = (path("first.py") + ' ' + path("last.py")).toStdString();
    EXPECT_FALSE(window.close());
    EXPECT_EQ(asked(), both);
    expectAllAsBefore();
    reply = QDialogButtonBox::Cancel;
    EXPECT_FALSE(window.closeAllDocuments());
    EXPECT_EQ(asked(), both + '|' + both);
    expectAllAsBefore();
}

TEST_F(Leaving, savesAllOrDiscardsAll)
{
    const QSignalSpy closed(&window, &MainWindow::closed);
    reply = QDialogButtonBox::Discard;
    EXPECT_TRUE(window.closeAllDocuments());
    EXPECT_EQ(contents("first.py") + contents("last.py"), "oldold");
    EXPECT_TRUE(window.editors().isEmpty());
    EXPECT_EQ(closed.count(), 0);

    edited("first.py");
    edited("last.py");
    reply = QDialogButtonBox::Save;
    EXPECT_TRUE(window.close());
    EXPECT_EQ(contents("first.py") + contents("last.py"), "newnew");
    EXPECT_EQ(closed.count(), 1);
    EXPECT_EQ(questions.size(), 2);
}

TEST_F(Leaving, aScriptThatGetsNoNameStays)
{
    HVPythonTextEdit* unnamed = window.newScript();
    const QString name = tabTitle(*unnamed);
    unnamed->insertPlainText(QStringLiteral("x"));
    window.showEditor(*clean);
    reply = QDialogButtonBox::Save;
    EXPECT_FALSE(window.close());
    ASSERT_EQ(questions.size(), 2) << asked();
    EXPECT_TRUE(questions[0].endsWith(name)) << asked();
    EXPECT_EQ(questions[1], QStringLiteral("Save Script of ") + name + QStringLiteral(" [EDITED]"));
    EXPECT_TRUE(unnamed->document()->isModified());
    EXPECT_EQ(window.editors().size(), 4);
}

TEST_F(Leaving, aDocumentThatRefusesKeepsWhatWouldHaveBeenDiscarded)
{
    auto* stubborn = new Stubborn;
    window.addDocument(stubborn);
    window.showEditor(*clean);
    reply = QDialogButtonBox::Discard;
    EXPECT_FALSE(window.close());
    EXPECT_EQ(stubborn->asked, 1);
    expectAllAsBefore();
}

TEST_F(Leaving, oneEditorAsksWithItsTabInFront)
{
    auto* tabs = window.workspace()->findChild<QTabBar*>();
    Q_EMIT tabs->tabCloseRequested(0);
    EXPECT_EQ(asked(), "Python of first.py [EDITED]");
    EXPECT_EQ(window.activeEditor(), first);
    EXPECT_EQ(window.editors().size(), 3);
    Q_EMIT tabs->tabCloseRequested(1);
    EXPECT_EQ(window.editors(), (QList<HVPythonTextEdit*>{first, last}));
    EXPECT_EQ(questions.size(), 1);
}

TEST_F(Leaving, windowsWithoutAParentCloseWithTheMainWindow)
{
    Stubborn willing, refusing;
    willing.refuses = false;
    willing.show();
    refusing.show();
    EXPECT_FALSE(window.close());
    EXPECT_EQ(willing.asked + refusing.asked, 0);
    EXPECT_TRUE(willing.isVisible());
    reply = QDialogButtonBox::Discard;
    QTimer::singleShot(0, &window, &QWidget::close);
    QTimer::singleShot(20000, &window, [] { QCoreApplication::exit(1); });
    EXPECT_EQ(QApplication::exec(), 0) << "the application would not end";
    EXPECT_EQ(willing.asked, 1);
    EXPECT_EQ(refusing.asked, 1);
    EXPECT_FALSE(willing.isVisible() || refusing.isVisible());
}

TEST_F(Leaving, newScriptsHaveDifferentTabsAndTheTitleKeepsItsWords)
{
    const HVPythonTextEdit* one = window.newScript();
    HVPythonTextEdit* two = window.newScript();
    const auto* tabs = window.workspace()->findChild<QTabBar*>();
    const auto tab = [&](int index) { return tabs->tabText(index); };
    EXPECT_EQ(one->windowTitle(), QStringLiteral("Python Editor"));
    EXPECT_EQ(two->windowTitle(), QStringLiteral("Python Editor"));
    EXPECT_NE(tab(3), tab(4));
    EXPECT_TRUE(tab(4).startsWith(QStringLiteral("Python Editor ")));
    const QString before = tab(4);
    two->insertPlainText(QStringLiteral("x"));
    EXPECT_EQ(two->windowTitle(), QStringLiteral("Python Editor [EDITED] "));
    EXPECT_EQ(tab(4), before + QStringLiteral(" [EDITED] "));
    two->setFilename(path("two.py"));
    EXPECT_TRUE(two->saveToFile());
    EXPECT_EQ(tab(4), QStringLiteral("two.py"));
}

TEST_F(Leaving, scriptsOfOneNameShowTheirFoldersWhileBothAreOpen)
{
    const auto* tabs = window.workspace()->findChild<QTabBar*>();
    const auto texts = [&] {
        QStringList all;
        for (int tab = 3; tab < tabs->count(); ++tab)
            all << tabs->tabText(tab);
        return all.join(QLatin1Char('|'));
    };
    const auto open = [&](const char* file) {
        const QString whole = path(file);
        QDir().mkpath(QFileInfo(whole).path());
        EXPECT_TRUE(QFile(whole).open(QIODevice::WriteOnly));
        return window.openScript(whole);
    };
    open("a/main.py");
    HVPythonTextEdit* second = open("b/main.py");
    EXPECT_EQ(texts(), QStringLiteral("main.py - a|main.py - b"));
    second->insertPlainText(QStringLiteral("x"));
    EXPECT_EQ(texts(), QStringLiteral("main.py - a|main.py - b [EDITED] "));
    open("b/a/main.py");
    EXPECT_TRUE(texts().endsWith(QStringLiteral("/a|main.py - b [EDITED] |main.py - b/a"))) << texts().toStdString();
    second->setFilename(path("b/other.py"));
    second->document()->setModified(false);
    EXPECT_TRUE(texts().endsWith(QStringLiteral("/a|other.py|main.py - b/a"))) << texts().toStdString();
    window.workspace()->closeActiveSubWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return texts() == QStringLiteral("main.py|other.py"); }))
        << texts().toStdString();
}

} // namespace
