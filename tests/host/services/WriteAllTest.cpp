// Writing everything to a file that does not take everything at once.
#include "host/services/WriteAll.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <string>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace {

class WriteAll : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_EQ(pipe2(ends, O_NONBLOCK), 0); }
    void TearDown() override
    {
        close(ends[0]);
        close(ends[1]);
    }
    static double processorSeconds()
    {
        rusage used{};
        getrusage(RUSAGE_THREAD, &used);
        const auto seconds = [](const timeval& time) {
            return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
        };
        return seconds(used.ru_utime) + seconds(used.ru_stime);
    }

    int ends[2] = {-1, -1};
};

TEST_F(WriteAll, aFullPipeIsWaitedForWithoutOccupyingTheProcessor)
{
    const std::string text(1'000'000, 'x');
    std::size_t read = 0;
    std::thread reader([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
        char piece[4096];
        while (read < text.size())
            if (const ssize_t size = ::read(ends[0], piece, sizeof piece); size > 0)
                read += static_cast<std::size_t>(size);
            else
                std::this_thread::yield();
    });
    const double before = processorSeconds();
    EXPECT_EQ(hv::writeAll(ends[1], text), 0);
    EXPECT_LT(processorSeconds() - before, 0.2);
    reader.join();
    EXPECT_EQ(read, text.size());
}

TEST_F(WriteAll, whoReadsNoMoreEndsTheWait)
{
    const auto handler = std::signal(SIGPIPE, SIG_IGN);
    std::thread reader([this] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        close(std::exchange(ends[0], -1));
    });
    EXPECT_EQ(hv::writeAll(ends[1], std::string(1'000'000, 'x')), EPIPE);
    reader.join();
    std::signal(SIGPIPE, handler);
    EXPECT_EQ(hv::writeAll(-1, "x"), EBADF);
}

} // namespace
