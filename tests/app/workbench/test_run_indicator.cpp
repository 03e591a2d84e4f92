// A script that occupies the GUI thread: what the user does meanwhile waits, except for stopping it.
#include "app/workbench/MainWindow.h"
#include "app/workbench/RunIndicator.h"
#include "host/services/HVEventBus.h"
#include "host/widgets/HVMessageView.h"
#include "host/widgets/HVMessageWindow.h"

#include <QAction>
#include <QDialog>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QWindow>

namespace {

using workbench::MainWindow;

class RunIndicator : public ::testing::Test
{
protected:
    RunIndicator()
    {
        window.resize(900, 600);
        window.addDocument(page);
        line->setGeometry(10, 10, 200, 30);
        button->setGeometry(10, 60, 200, 30);
        QObject::connect(button, &QPushButton::clicked, [this] { log << QStringLiteral("click"); });
        QObject::connect(line, &QLineEdit::textEdited, [this](const QString& text) { log << text; });
        button->setFocusPolicy(Qt::NoFocus);
        window.show();
        activate();
    }
    void activate()
    {
        window.activateWindow();
        line->setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    /// A breath during which the window system reports `input`.
    bool breatheWith(const std::function<void()>& input)
    {
        QMetaObject::invokeMethod(&queued, input, Qt::QueuedConnection);
        return run->breathe();
    }
    static void click(QWidget* widget)
    {
        const QPoint global = widget->mapToGlobal(widget->rect().center());
        QWindow* native = widget->window()->windowHandle();
        const QPoint local = native->mapFromGlobal(global);
        qt_handleMouseEvent(native, local, global, Qt::LeftButton, Qt::LeftButton, QEvent::MouseButtonPress, {},
                            ++time);
        qt_handleMouseEvent(native, local, global, {}, Qt::LeftButton, QEvent::MouseButtonRelease, {}, ++time);
        time += 1000; // no double click
    }
    void key(int code, Qt::KeyboardModifiers modifiers = {})
    {
        const QString text = modifiers ? QString() : QString(QChar(code)).toLower();
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
            qt_handleKeyEvent(window.windowHandle(), type, code, modifiers, text);
    }

    static inline int time = 10000;
    MainWindow window;
    workbench::RunIndicator* run = window.runIndicator();
    QWidget* page = new QWidget;
    QLineEdit* line = new QLineEdit(page);
    QPushButton* button = new QPushButton(page);
    QObject queued;
    QStringList log;
};

TEST_F(RunIndicator, inputWaitsForTheEndOfTheRunInOrder)
{
    int timerCalls = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++timerCalls; });
    timer.start(0);
    auto* doomed = new QWidget;
    doomed->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(doomed));
    activate();
    QAction action;
    action.setShortcut(QStringLiteral("Ctrl+K"));
    QObject::connect(&action, &QAction::triggered, [&] { log << QStringLiteral("Ctrl+K"); });
    window.addAction(&action);

    timerCalls = 0;
    run->runStarted(QStringLiteral("/tmp/script.py"));
    EXPECT_FALSE(breatheWith([&] {
        key(Qt::Key_A);
        click(button);
        click(doomed);
        key(Qt::Key_K, Qt::ControlModifier);
    }));
    delete doomed;
    EXPECT_FALSE(breatheWith([&] {
        key(Qt::Key_B);
        window.windowHandle()->close();
    }));
    EXPECT_TRUE(log.isEmpty()) << log.join(' ').toStdString();
    EXPECT_EQ(timerCalls, 0) << "timers may run user code";
    EXPECT_TRUE(window.windowTitle().contains(QStringLiteral("running")));
    run->runFinished();
    EXPECT_FALSE(window.windowTitle().contains(QStringLiteral("running")));
    EXPECT_TRUE(log.isEmpty());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window.isVisible(); }, 2000)) << "the close is asked again";
    EXPECT_EQ(log, (QStringList{QStringLiteral("a"), QStringLiteral("click"), QStringLiteral("Ctrl+K"),
                                QStringLiteral("ab")}));
    EXPECT_GT(timerCalls, 0);
}

TEST_F(RunIndicator, stopWorksByButtonKeyAndTwoEscapes)
{
    QWidget* stop = window.toolBar()->widgetForAction(run->stopAction());
    EXPECT_FALSE(stop->isEnabled());
    run->runStarted(QStringLiteral("script.py"));
    EXPECT_TRUE(stop->isEnabled());
    EXPECT_TRUE(breatheWith([&] { click(stop); }));
    EXPECT_FALSE(run->breathe()) << "asked once";
    EXPECT_TRUE(breatheWith([&] { key(Qt::Key_F5, Qt::ShiftModifier); }));
    EXPECT_FALSE(breatheWith([&] { key(Qt::Key_Escape); }));
    EXPECT_TRUE(breatheWith([&] { key(Qt::Key_Escape); }));
    run->runFinished();
    EXPECT_FALSE(stop->isEnabled());
    QTest::qWait(20);
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(RunIndicator, aScriptThatIgnoresTheStopLetsTheUserEndTheApplication)
{
    const auto stop = [this] { return breatheWith([this] { key(Qt::Key_F5, Qt::ShiftModifier); }); };
    QString question;
    const auto wait = [&] {
        if (const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            question = box->text();
            box->defaultButton()->click();
        }
    };
    run->runStarted(QStringLiteral("/tmp/stubborn.py"));
    EXPECT_TRUE(stop());
    EXPECT_TRUE(stop()) << "and no question: the script may be tidying up";
    QTest::qWait(2100);
    QTimer timer; // fires in the question's event loop only, not in a breath
    QObject::connect(&timer, &QTimer::timeout, wait);
    timer.start(20);
    EXPECT_TRUE(stop());
    timer.stop();
    EXPECT_EQ(question, QStringLiteral("stubborn.py was stopped and goes on all the same."));
    EXPECT_FALSE(run->breathe());
    EXPECT_TRUE(stop()) << "it was given time again";
    run->runFinished();
}

TEST_F(RunIndicator, showsMessagesWhileRunningAndDialogsOfTheScriptGetTheirInput)
{
    run->runStarted(QStringLiteral("script.py"));
    HVEventBus::instance().sendUtf8(5, "working\n");
    run->breathe();
    EXPECT_EQ(window.messageWindow()->view()->toPlainText(), QStringLiteral("working\n"));

    // A breath within a callback of the script's dialog must not keep the dialog's own input until the run is over.
    QDialog dialog;
    QPushButton ok(&dialog);
    QObject::connect(&ok, &QPushButton::clicked, &dialog, &QDialog::accept);
    QTimer::singleShot(0, &dialog, [&] { breatheWith([&] { click(&ok); }); });
    QTimer::singleShot(3000, &dialog, &QDialog::reject);
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);

    // Leaving waits for the run too.
    EXPECT_FALSE(window.close());
    run->runFinished();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window.isVisible(); }, 2000));
}

} // namespace
