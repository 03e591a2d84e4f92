// Times of a volume's frames beside those of copying memory, in turns, for bench_volumes.py: "name ratio limit" per
// line. Needs a folder on a disk with room for 3.5 times the volume; its edge may follow (512 samples).
#include "host/volume/VolumeEditor.h"
#include "host/volume/VolumeWriter.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <random>
#include <unistd.h>
#include <vector>

namespace {

using georef::ScanOrientation;
using hv::VolumeFile;

constexpr int g_rounds = 101;
constexpr int g_coldRounds = 15;

double milliseconds(const std::function<void()>& act)
{
    QElapsedTimer clock;
    clock.start();
    act();
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

double median(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

bool make(const QString& path, int edge, const hv::VolumeOrders& orders)
{
    hv::VolumeHeader header;
    header.space = georef::BlocSpace(edge, edge, edge);
    auto writer = hv::VolumeWriter::create(path, header, orders);
    if (!writer) {
        std::fprintf(stderr, "%s\n", qPrintable(writer.failure().sentence));
        return false;
    }
    std::vector<float> frame(static_cast<std::size_t>(edge) * static_cast<std::size_t>(edge));
    std::mt19937 random(1);
    std::generate(frame.begin(), frame.end(), [&] { return static_cast<float>(random() % 2000) - 1000.0f; });
    for (int i = 0; i < edge; ++i)
        if (!(*writer)->writeInline(i, frame.data()))
            return false;
    return bool((*writer)->finish(nullptr));
}

void dropCache(const QString& path)
{
    const hv::FileDescriptor file = hv::FileDescriptor::open(path, O_RDONLY);
    fsync(file.number());
    posix_fadvise(file.number(), 0, 0, POSIX_FADV_DONTNEED);
}

void warm(const char* name, const VolumeFile& file, const std::vector<float>& memory, const double (&limits)[3])
{
    std::mt19937 random(2);
    const char* names[] = {"inline", "crossline", "time slice"};
    for (const ScanOrientation orientation : hv::scanOrientations) {
        const hv::FrameShape shape = file.shape(orientation);
        const auto cells = static_cast<std::size_t>(shape.cells());
        std::vector<float> out(cells);
        std::vector<double> ratios;
        for (int index = 0; index < shape.count; ++index) // all of it in memory and mapped
            (void)file.readFrame(orientation, index, out.data());
        for (int round = 0; round < g_rounds; ++round) {
            const int index = static_cast<int>(random() % static_cast<unsigned>(shape.count));
            const std::size_t from = random() % (memory.size() / cells) * cells;
            const double copied =
                milliseconds([&] { std::memcpy(out.data(), memory.data() + from, cells * sizeof(float)); });
            const double read = milliseconds([&] { (void)file.readFrame(orientation, index, out.data()); });
            ratios.push_back(read / copied);
        }
        const auto which = static_cast<std::size_t>(orientation);
        std::printf("%s, %s, warm against memcpy;%.2f;%.1f\n", name, names[which], median(ratios), limits[which]);
    }
}

/// The first frame of a file that nobody has in memory, against one read of as many bytes.
void cold(const QString& path)
{
    std::mt19937 random(3);
    const char* names[] = {"inline", "crossline", "time slice"};
    for (const ScanOrientation orientation : hv::scanOrientations) {
        std::vector<double> frames;
        std::vector<double> reads;
        for (int round = 0; round < g_coldRounds; ++round) {
            dropCache(path);
            const auto file = VolumeFile::open(path);
            const hv::FrameShape shape = (*file)->shape(orientation);
            std::vector<float> out(static_cast<std::size_t>(shape.cells()));
            const int index = static_cast<int>(random() % static_cast<unsigned>(shape.count));
            frames.push_back(milliseconds([&] { (void)(*file)->readFrame(orientation, index, out.data()); }));
            dropCache(path);
            const hv::FileDescriptor plain = hv::FileDescriptor::open(path, O_RDONLY);
            posix_fadvise(plain.number(), 0, 0, POSIX_FADV_RANDOM);
            const std::int64_t at = (*file)->layout().order(orientation)->offset + index * shape.bytes();
            reads.push_back(milliseconds([&] { (void)hv::readAt(plain.number(), out.data(), shape.bytes(), at); }));
        }
        std::printf("three orders, %s, first cold frame against one pread;%.2f;1.5\n",
                    names[static_cast<std::size_t>(orientation)], median(frames) / median(reads));
    }
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QString folder = QCoreApplication::arguments().value(1);
    const int edge = QCoreApplication::arguments().value(2, QStringLiteral("512")).toInt();
    const QString three = folder + QStringLiteral("/three.svol");
    const QString one = folder + QStringLiteral("/one.svol");
    const auto cells = static_cast<std::size_t>(edge) * static_cast<std::size_t>(edge);
    const std::vector<float> memory(cells * 256, 1.0f);
    if (edge < 1 || !make(three, edge, {}) || !make(one, edge, {false, false}))
        return 1;
    warm("three orders", **VolumeFile::open(three), memory, {1.3, 1.3, 1.3});
    // An inline is one piece, a time slice has a row per inline, a crossline a sample per row.
    warm("inline order only", **VolumeFile::open(one), memory, {1.5, 40.0, 2.5});
    cold(three);
    return 0;
}
