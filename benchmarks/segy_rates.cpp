// What reading and writing SEG-Y costs beside copying the same bytes: conversions against memcpy, import and export
// against dd, all warm and through to the disk. Prints one line of JSON for bench_segy.py and leaves FOLDER/rates.sgy.
//
//     segy_rates FOLDER [MEGABYTES]
#include "host/segy/Import.h"
#include "host/segy/TraceWriter.h"
#include "host/volume/VolumeFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double secondsOf(const std::function<void()>& work)
{
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Of the rounds: the machine is never quiet.
double best(const std::vector<double>& values)
{
    return *std::min_element(values.begin(), values.end());
}

void require(bool ok, const QString& what)
{
    if (ok)
        return;
    std::fprintf(stderr, "segy_rates: %s\n", qPrintable(what));
    std::exit(1);
}

/// Own memory, in megabytes; the page cache does not count.
double ownMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    require(status.open(QIODevice::ReadOnly), QStringLiteral("no /proc"));
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("RssAnon:"))
            return line.mid(8).trimmed().split(' ').first().toDouble() / 1024;
    return 0;
}

void conversions()
{
    constexpr std::size_t count = 64 << 20;
    std::vector<float> samples(count);
    std::vector<float> target(count);
    for (std::size_t i = 0; i < count; ++i)
        samples[i] = std::sin(static_cast<float>(i)) * 1000;
    auto* const bytes = reinterpret_cast<std::byte*>(target.data());
    std::vector<double> copy, toIbm, fromIbm, fromInt16;
    // Traces of 1000 samples, as they come from a file.
    const auto inTraces = [](const std::function<void(std::size_t, std::size_t)>& convert) {
        return secondsOf([&] {
            for (std::size_t first = 0; first < count; first += 1000)
                convert(first, std::min<std::size_t>(1000, count - first));
        });
    };
    using namespace hv::segy;
    for (int round = 0; round < 9; ++round) {
        copy.push_back(inTraces(
            [&](std::size_t first, std::size_t n) { std::memcpy(bytes + 4 * first, samples.data() + first, 4 * n); }));
        toIbm.push_back(inTraces([&](std::size_t first, std::size_t n) {
            encode(SampleFormat::Ibm, samples.data() + first, bytes + 4 * first, n);
        }));
        fromIbm.push_back(inTraces([&](std::size_t first, std::size_t n) {
            decode(SampleFormat::Ibm, ByteOrder::Big, bytes + 4 * first, samples.data() + first, n);
        }));
        fromInt16.push_back(inTraces([&](std::size_t first, std::size_t n) {
            decode(SampleFormat::Int16, ByteOrder::Big, bytes + 2 * first, samples.data() + first, n);
        }));
    }
    std::printf("\"memcpy\": %g, \"to_ibm\": %g, \"from_ibm\": %g, \"from_int16\": %g, ", best(copy), best(toIbm),
                best(fromIbm), best(fromInt16));
}

void copyWithDd(const QString& from, const QString& to)
{
    QFile::remove(to);
    const int status = QProcess::execute(
        QStringLiteral("dd"), {QStringLiteral("if=%1").arg(from), QStringLiteral("of=%1").arg(to),
                               QStringLiteral("bs=4M"), QStringLiteral("conv=fsync"), QStringLiteral("status=none")});
    require(status == 0, QStringLiteral("dd failed"));
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    require(argc > 1, QStringLiteral("name a folder"));
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const int megabytes = argc > 2 ? std::atoi(argv[2]) : 1024;
    constexpr int samples = 1000, crosslines = 500;
    const int inlines = std::max(
        1, static_cast<int>(std::int64_t(megabytes) * 1'000'000 / (std::int64_t(crosslines) * (240 + 4 * samples))));
    georef::BlocSpace space(crosslines, inlines, samples);
    require(space.setSurveySpace(1, crosslines, 1, inlines, 0, 4 * (samples - 1)).empty(), QStringLiteral("survey"));
    require(space
                .setWorldSpace({5e5, 6e6, 0}, {5e5 + 25.0 * (crosslines - 1), 6e6, 0},
                               {5e5, 6e6 + 12.5 * (inlines - 1), 0}, {5e5, 6e6, 4.0 * (samples - 1)})
                .empty(),
            QStringLiteral("world"));
    HVSegyDescription description(space, QStringLiteral("Rates"), georef::Domain::Time, georef::Unit::Milliseconds);

    hv::JobProgress progress;
    hv::JobContext context(progress);
    const QString segy = folder + QStringLiteral("/rates.sgy");
    const QString volume = folder + QStringLiteral("/rates.svol");
    const QString copy = folder + QStringLiteral("/rates.copy");
    const hv::segy::ReadTraces made = [](int y, int first, int end, float* out) -> hv::Result<void> {
        for (std::int64_t i = 0; i < std::int64_t(end - first) * samples; ++i)
            out[i] = static_cast<float>((i * 37 + y) % 2001 - 1000) * 0.37F;
        return {};
    };
    std::printf("{");
    conversions();
    require(bool(hv::segy::writeSegy(segy, description, -9999, made, context)),
            QStringLiteral("the file cannot be written"));
    std::vector<double> dd, scanning, importing, exporting, exportingIeee;
    double memory = 0;
    for (int round = 0; round < 5; ++round) {
        dd.push_back(secondsOf([&] { copyWithDd(segy, copy); }));
        std::shared_ptr<const hv::segy::Scan> found;
        scanning.push_back(secondsOf([&] {
            auto result = hv::segy::scan(segy, {}, context);
            require(bool(result), QStringLiteral("scan"));
            found = *result;
        }));
        QFile::remove(volume);
        hv::segy::ImportChoice choice;
        choice.orders = {false, false};
        importing.push_back(secondsOf([&] {
            auto result = hv::segy::importSegy(*found, choice, volume, context);
            require(bool(result), result ? QString() : result.failure().sentence);
        }));
        memory = std::max(memory, ownMemory());
        const auto file = hv::VolumeFile::open(volume);
        require(bool(file), QStringLiteral("volume"));
        const hv::segy::ReadTraces read = [&file](int y, int first, int end, float* out) {
            return (*file)->readTraces(y, first, end, out);
        };
        for (auto* times : {&exporting, &exportingIeee}) {
            description.setFormat(times == &exporting ? hv::segy::SampleFormat::Ibm : hv::segy::SampleFormat::Ieee);
            QFile::remove(copy);
            times->push_back(secondsOf([&] {
                require(bool(hv::segy::writeSegy(copy, description, -9999, read, context)), QStringLiteral("export"));
            }));
        }
    }
    std::printf("\"bytes\": %lld, \"dd\": %g, \"scan\": %g, \"import\": %g, \"export_ibm\": %g, \"export_ieee\": %g, "
                "\"own_memory_mb\": %g}\n",
                static_cast<long long>(QFileInfo(segy).size()), best(dd), best(scanning), best(importing),
                best(exporting), best(exportingIeee), memory);
    for (const QString& file : {volume, copy})
        QFile::remove(file);
    return 0;
}
