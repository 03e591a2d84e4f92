// The message window as a user sees it: text, colours, scrolling, search, the dock that comes forward.
#include "host/services/HVEventBus.h"
#include "host/widgets/HVFindBar.h"
#include "host/widgets/HVMessageView.h"
#include "host/widgets/HVMessageWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

#include <cmath>
#include <thread>

namespace {

void send(int level, std::string_view text, bool reveal = false)
{
    HVEventBus::instance().sendUtf8(level, text, reveal);
}

class MessageWindow : public ::testing::Test
{
protected:
    MessageWindow()
    {
        window.resize(600, 200);
        window.show();
    }
    QString shown()
    {
        window.flush();
        return view->toPlainText();
    }

    HVMessageWindow window{nullptr, 100};
    HVMessageView* view = window.view();
};

TEST_F(MessageWindow, showsStreamsExactlyAndMessagesOnLinesOfTheirOwn)
{
    send(5, "a");
    send(5, "b\r");
    send(6, "\nerr");
    send(1, "whole");
    send(3, "another");
    send(5, "tail");
    EXPECT_EQ(shown(), QStringLiteral("ab\nerr\nwhole\nanother\ntail"));
    send(5, std::string_view("\0\x1b[m\t\xf0\x9f\x90\x8d", 9));
    EXPECT_EQ(shown().section(QLatin1Char('\n'), -1), QStringLiteral("tail\u2400\u241b[m\t\U0001F40D"));
    window.clear();
    send(5, "kept\n10%\r20%");
    send(5, "\r");
    EXPECT_EQ(shown(), QStringLiteral("kept\n20%"));
    send(5, "done\n");
    EXPECT_EQ(shown(), QStringLiteral("kept\ndone\n"));
}

TEST_F(MessageWindow, longLinesAreWholeInCopies)
{
    std::string line(300000, 'x');
    line[12345] = 'y';
    send(5, line + "\nend");
    window.flush();
    EXPECT_LT(view->document()->firstBlock().length(), 10000);
    window.copy();
    EXPECT_EQ(QApplication::clipboard()->text(), QString::fromStdString(line + "\nend"));
}

TEST_F(MessageWindow, levelsHaveColoursThatFollowThePalette)
{
    send(1, "error");
    send(5, "plain\n");
    window.flush();
    const auto colourOf = [&](int line) {
        return view->document()->findBlockByNumber(line).begin().fragment().charFormat().foreground();
    };
    QPalette palette = view->palette();
    for (const bool dark : {true, false}) {
        palette.setColor(QPalette::Base, dark ? Qt::black : Qt::white);
        view->setPalette(palette);
        EXPECT_EQ(colourOf(0).color(), HVMessageView::levelColour(1, dark));
        EXPECT_EQ(colourOf(1), QBrush()) << "the palette's own text colour";
        // Readable: the WCAG contrast of small text.
        const auto luminance = [](QColor c) {
            const auto linear = [](double v) { return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
            return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
        };
        for (const int level : {1, 2, 3, 4, 6}) {
            const double value = luminance(HVMessageView::levelColour(level, dark));
            EXPECT_GT(dark ? (value + 0.05) / 0.05 : 1.05 / (value + 0.05), 4.5) << level;
        }
    }
}

TEST_F(MessageWindow, keepsTheNewestLinesAndFollowsOnlyAtTheEnd)
{
    for (int i = 0; i < 90; ++i)
        send(5, std::to_string(i) + "\n");
    window.flush();
    EXPECT_TRUE(view->isAtEnd());
    window.resize(600, 120);
    EXPECT_TRUE(view->isAtEnd());
    view->verticalScrollBar()->setValue(40);
    const QString top = view->topLine().block().text();
    for (int i = 90; i < 110; ++i)
        send(5, std::to_string(i) + "\n");
    window.flush();
    EXPECT_EQ(view->topLine().block().text(), top) << "reading is not disturbed";
    EXPECT_EQ(view->document()->firstBlock().text(), QStringLiteral("10"));
    view->goToEnd();
    std::thread([] {
        for (int i = 0; i < 1000; ++i)
            send(5, std::to_string(i) + "\n");
    }).join();
    window.flush();
    EXPECT_TRUE(view->isAtEnd());
    EXPECT_EQ(view->document()->firstBlock().text(), QStringLiteral("900"));
    EXPECT_EQ(view->document()->blockCount(), 101);
}

TEST_F(MessageWindow, findsAroundTheEndsAndMarksAll)
{
    send(5, "Alpha beta\nalphabet\nbeta\n");
    window.flush();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    view->setFocus();
    QTest::keyClick(view, Qt::Key_F, Qt::ControlModifier);
    HVFindBar* bar = window.findBar();
    ASSERT_TRUE(bar->isVisible());
    bar->setText(QStringLiteral("alpha"));
    EXPECT_EQ(view->extraSelections().size(), 2);
    const auto position = [&] { return view->textCursor().selectionStart(); };
    EXPECT_EQ(position(), 0);
    bar->findNext();
    EXPECT_EQ(position(), 11);
    bar->findNext();
    EXPECT_EQ(position(), 0);
    bar->findPrevious();
    EXPECT_EQ(position(), 11);
    bar->setText(QStringLiteral("gamma"));
    EXPECT_TRUE(view->extraSelections().isEmpty());
    QTest::keyClick(bar, Qt::Key_Escape);
    EXPECT_FALSE(bar->isVisible());
}

TEST(MessageDock, comesForwardWhenAskedAndNothingRunsAtRest)
{
    QMainWindow main;
    auto* dock = new QDockWidget(&main);
    auto* window = new HVMessageWindow(dock);
    dock->setWidget(window);
    main.addDockWidget(Qt::BottomDockWidgetArea, dock);
    auto* other = new QDockWidget(&main);
    main.addDockWidget(Qt::BottomDockWidgetArea, other);
    main.tabifyDockWidget(dock, other);
    main.show();
    dock->hide();
    send(3, "quiet");
    window->flush();
    EXPECT_TRUE(dock->isHidden());
    send(1, "look", true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !dock->isHidden(); }, 1000)) << "shown by the queue's own wake-up";
    window->flush();
    dock->hide();
    send(5, "output\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !dock->isHidden(); }, 1000));
    QTest::qWait(40);
    for (QTimer* timer : window->findChildren<QTimer*>())
        EXPECT_FALSE(timer->isActive()) << timer->objectName().toStdString();
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
