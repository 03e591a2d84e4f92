// Queue, icons and actions: what the host offers without a window.
#include "host/icons/HVIconStore.h"
#include "host/services/HVActionDispatcher.h"
#include "host/services/HVMessageQueue.h"

#include <QApplication>
#include <QPalette>
#include <QPixmap>

#include <atomic>
#include <thread>

namespace {

std::vector<std::pair<int, std::string>> takeAll(HVMessageBatch& batch, std::size_t pieceBytes = 1000)
{
    std::vector<std::pair<int, std::string>> pieces;
    while (!batch.isEmpty()) {
        const HVMessageBatch::Piece piece = batch.takeFront(pieceBytes);
        pieces.emplace_back(piece.level, std::string(piece.text));
    }
    return pieces;
}

using Pieces = std::vector<std::pair<int, std::string>>;

TEST(MessageBatch, joinsNeighboursAndCutsAtLinesAndCharacters)
{
    HVMessageBatch batch;
    batch.append(5, "a");
    batch.append(5, "b\n");
    batch.append(1, "whole");
    batch.append(1, "ended\n");
    batch.append(1, "");
    batch.append(6, "");
    batch.append(6, "\xc3\xa4\xc3\xb6\n1\n22");
    EXPECT_EQ(batch.lineCount(), 6u);
    HVMessageBatch copy;
    copy.append(5, "x");
    copy.append(batch);
    EXPECT_EQ(takeAll(copy), (Pieces{{5, "xab\n"}, {1, "whole\nended\n\n"}, {6, "\xc3\xa4\xc3\xb6\n1\n22"}}));
    batch.keepNewest(3, 1000);
    EXPECT_EQ(takeAll(batch, 4), (Pieces{{1, "\n"}, {6, "\xc3\xa4\xc3\xb6"}, {6, "\n1\n"}, {6, "22"}}));

    batch.append(5, "one long line of \xe2\x82\xac");
    batch.keepNewest(100, 2);
    EXPECT_EQ(batch.byteCount(), 0u) << "a character is never cut in two";
    batch.append(5, "1\n2\n3\n4");
    batch.keepNewest(2, 4);
    EXPECT_EQ(takeAll(batch), (Pieces{{5, "3\n4"}}));
}

TEST(MessageQueue, keepsTheNewestLinesOfTenThreadsAndWakesOncePerBatch)
{
    constexpr int threads = 10;
    constexpr int messages = 3000;
    std::atomic<int> wakes = 0;
    HVMessageQueue queue(1000, [&] { ++wakes; });
    const auto sendAll = [&] {
        std::vector<std::thread> senders;
        for (int t = 0; t < threads; ++t)
            senders.emplace_back([&queue, t] {
                for (int i = 0; i < messages; ++i)
                    queue.receive({3, std::to_string(t) + ' ' + std::to_string(i), false});
            });
        for (std::thread& sender : senders)
            sender.join();
    };
    HVMessageBatch batch;
    for (int round = 1; round <= 2; ++round) {
        sendAll();
        EXPECT_EQ(wakes, round);
        EXPECT_FALSE(queue.take(batch));
        ASSERT_EQ(batch.lineCount(), 1000u);
        std::vector<int> last(threads, -1);
        int seen = 0;
        while (!batch.isEmpty()) {
            int thread = 0;
            int number = 0;
            const std::string line(batch.takeFront(8).text);
            ASSERT_EQ(std::sscanf(line.c_str(), "%d %d\n", &thread, &number), 2) << line;
            EXPECT_GT(number, last[thread]) << "order of one sender";
            last[thread] = number;
            ++seen;
        }
        EXPECT_EQ(seen, 1000);
    }
    queue.receive({3, "quiet", false});
    EXPECT_FALSE(queue.take(batch));
    queue.receive({3, "look", true});
    EXPECT_TRUE(queue.take(batch));
    queue.receive({5, "output", false});
    EXPECT_TRUE(queue.take(batch));
    EXPECT_FALSE(queue.take(batch)) << "asked for once";
}

QImage drawn(const char* name, QIcon::Mode mode = QIcon::Normal)
{
    return HVIconStore::icon(QLatin1String(name)).pixmap(QSize(24, 24), mode).toImage();
}

TEST(IconStore, followsThePaletteAndKnowsItsNames)
{
    QPalette light = QApplication::palette();
    light.setColor(QPalette::ButtonText, Qt::black);
    QApplication::setPalette(light);
    const QImage black = drawn("python_package_24");
    ASSERT_FALSE(black.isNull());
    int inked = 0;
    for (int y = 0; y < black.height(); ++y)
        for (int x = 0; x < black.width(); ++x)
            inked += qAlpha(black.pixel(x, y)) > 128 ? 1 : 0;
    EXPECT_GT(inked, 30);
    EXPECT_LT(inked, 400) << "line drawing, not a filled square";
    EXPECT_NE(drawn("python_package_24", QIcon::Disabled), black);

    QPalette dark = light;
    dark.setColor(QPalette::ButtonText, Qt::white);
    QApplication::setPalette(dark);
    EXPECT_NE(drawn("python_package_24"), black);
    QApplication::setPalette(light);
    EXPECT_EQ(drawn("python_package_24"), black);

    for (const char* name : {"python_plugin_16", "python_atb_tester_16", "python_doc_24", "data_out_python_plugin_16",
                             "data_in_python_plugin_16", "pythonplugins24", "projectopen24", "pythoneditor24", "save24",
                             "pythonrun24", "zoommode16", "pythondebug24", "atbseismicsmall", "2dlinesmall", "refresh"})
        EXPECT_FALSE(drawn(name).isNull()) << name;
    EXPECT_TRUE(HVIconStore::icon(QStringLiteral("no_such_icon")).isNull());
}

TEST(ActionDispatcher, callsTheHandlerAndReportsUnknownActions)
{
    HVMessageQueue messages(10, [] {});
    HVEventBus::instance().addSink(&messages);
    HVActionDispatcher dispatcher;
    QObject sender;
    QWidget target;
    int calls = 0;
    dispatcher.setHandler(QStringLiteral("GO"), [&](QObject* from, QObject* to) {
        EXPECT_EQ(from, &sender);
        EXPECT_EQ(to, &target);
        ++calls;
    });
    EXPECT_TRUE(dispatcher.dispatch(&sender, &target, QStringLiteral("GO")));
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(dispatcher.dispatch(&sender, &target, QStringLiteral("STAY")));
    HVEventBus::instance().removeSink(&messages);
    HVMessageBatch batch;
    messages.take(batch);
    EXPECT_EQ(takeAll(batch), (Pieces{{1, "Unknown action: STAY\n"}}));
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
