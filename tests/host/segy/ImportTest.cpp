// SEG-Y files become volumes, and volumes SEG-Y files: sample by sample, header by header.
#include "host/segy/Import.h"

#include "SegyMaker.h"
#include "host/core/Transform.h"
#include "host/segy/TraceWriter.h"
#include "host/volume/VolumeFile.h"

#include <QDir>
#include <QTemporaryDir>

#include <csignal>
#include <random>
#include <sys/resource.h>

namespace {

using georef::ScanOrientation;

class SegyVolume : public ::testing::Test
{
protected:
    std::shared_ptr<const hv::segy::Scan> scan(const QString& file, const hv::segy::ScanChoice& choice = {})
    {
        auto result = hv::segy::scan(file, choice, context);
        EXPECT_TRUE(result) << (result ? "" : result.failure().sentence.toStdString());
        return result ? *result : nullptr;
    }

    std::shared_ptr<const hv::VolumeFile> imported(const SegyMaker& made, const hv::segy::ImportChoice& choice = {})
    {
        const auto found = scan(made.write(segy));
        if (!found)
            return nullptr;
        const auto result = hv::segy::importSegy(*found, choice, volume, context);
        EXPECT_TRUE(result) << (result ? "" : result.failure().sentence.toStdString());
        if (!result)
            return nullptr;
        counts = *result;
        auto file = hv::VolumeFile::open(volume);
        EXPECT_TRUE(file) << (file ? "" : file.failure().sentence.toStdString());
        return file ? *file : nullptr;
    }

    /// The trace of a line pair by its numbers.
    static std::vector<float> trace(const hv::VolumeFile& file, int inlineNumber, int crosslineNumber)
    {
        const georef::BlocSpace& space = file.header().space;
        const core::vec3 block =
            core::transform(space.fromSurveyToBlock(), {double(inlineNumber), double(crosslineNumber), 0});
        const int x = static_cast<int>(std::lround(block.x));
        const int y = static_cast<int>(std::lround(block.y));
        std::vector<float> samples(static_cast<std::size_t>(space.length()));
        const auto read = file.readTraces(y, x, x + 1, samples.data());
        EXPECT_TRUE(read) << (read ? "" : read.failure().sentence.toStdString());
        return samples;
    }

    static void expectSamples(const hv::VolumeFile& file, const SegyMaker& made)
    {
        for (const SegyMaker::Trace& each : made.traces) {
            const std::vector<float> got = trace(file, each.inlineNumber, each.crosslineNumber);
            for (int i = 0; i < made.samples; ++i)
                ASSERT_EQ(got[static_cast<std::size_t>(i)], SegyMaker::sample(each, i))
                    << each.inlineNumber << ' ' << each.crosslineNumber;
        }
    }

    hv::segy::ReadTraces tracesOf(const hv::VolumeFile& file)
    {
        return [&file](int y, int first, int end, float* out) { return file.readTraces(y, first, end, out); };
    }

    QStringList filesLeft() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

    QTemporaryDir folder;
    const QString segy = folder.filePath(QStringLiteral("made.sgy"));
    const QString volume = folder.filePath(QStringLiteral("made.svol"));
    hv::JobProgress progress;
    hv::JobContext context{progress};
    hv::segy::ImportCounts counts;
};

TEST_F(SegyVolume, everySampleArrivesFromEveryOrderOfTraces)
{
    SegyMaker made;
    made.samples = 7;
    made.addSurvey(13, 11, 100, 2000, 3);
    std::mt19937 random(3);
    for (const int order : {0, 1, 2, 3}) {
        SegyMaker each = made;
        if (order == 1)
            std::sort(each.traces.begin(), each.traces.end(), [](const auto& a, const auto& b) {
                return std::pair(a.crosslineNumber, a.inlineNumber) < std::pair(b.crosslineNumber, b.inlineNumber);
            });
        if (order == 2)
            std::shuffle(each.traces.begin(), each.traces.end(), random);
        if (order == 3)
            std::reverse(each.traces.begin(), each.traces.end());
        for (const bool further : {false, true}) {
            hv::segy::ImportChoice choice;
            choice.orders = {further, further};
            const auto file = imported(each, choice);
            ASSERT_TRUE(file);
            EXPECT_EQ(file->header().inlines(), 13);
            EXPECT_EQ(file->header().crosslines(), 11);
            expectSamples(*file, each);
        }
    }
    EXPECT_EQ(filesLeft().size(), 2);
}

TEST_F(SegyVolume, formatsArriveAsTheNumbersTheyStandFor)
{
    for (const int format : {1, 2, 3, 5, 8})
        for (const auto order : {hv::segy::ByteOrder::Big, hv::segy::ByteOrder::Little}) {
            SegyMaker made;
            made.format = format;
            made.order = order;
            made.samples = 5;
            made.addSurvey(4, 3, 10, 40);
            const auto file = imported(made);
            ASSERT_TRUE(file);
            for (const SegyMaker::Trace& each : made.traces)
                for (int i = 0; i < made.samples; ++i) {
                    const float value = SegyMaker::sample(each, i);
                    const float stored = format == 1 || format == 5 ? value : std::trunc(value);
                    ASSERT_EQ(trace(*file, each.inlineNumber, each.crosslineNumber)[static_cast<std::size_t>(i)],
                              stored)
                        << format;
                }
        }
}

TEST_F(SegyVolume, missingAndDoubledTracesAreCountedAndTheFirstOneStays)
{
    SegyMaker made;
    made.addSurvey(6, 6);
    const SegyMaker::Trace missing = made.traces[8];
    const SegyMaker::Trace doubled = made.traces[20];
    made.traces.erase(made.traces.begin() + 8);
    // The last trace says that it is another one's: that one comes first and must stay.
    SegyMaker twice = made;
    twice.change = [&twice](QByteArray& header, int number) {
        if (number == static_cast<int>(twice.traces.size()) - 1) {
            twice.put32(header, 189, 4);
            twice.put32(header, 193, 22);
        }
    };
    const auto file = imported(twice);
    ASSERT_TRUE(file);
    EXPECT_EQ(counts.doubled, 1);
    EXPECT_EQ(trace(*file, missing.inlineNumber, missing.crosslineNumber), std::vector<float>(4, -9999.0F));
    EXPECT_EQ(trace(*file, 4, 22)[1], SegyMaker::sample(doubled, 1));
    EXPECT_EQ(counts.read + counts.empty, 36);
    QStringList history;
    for (const auto& entry : file->header().history)
        history << entry.what;
    EXPECT_TRUE(history.join('\n').contains(QStringLiteral("the first of each cell is kept")));
    EXPECT_TRUE(history.join('\n').contains(QStringLiteral("bytes 189 and 193")));
}

TEST_F(SegyVolume, theSurveyAndTheTimesAreWhereTheHeadersPutThem)
{
    SegyMaker made;
    made.scalar = -10;
    made.change = [&made](QByteArray& header, int) { made.put16(header, 109, 500); };
    made.addSurvey(5, 4, 10, 50, 2);
    const auto file = imported(made);
    ASSERT_TRUE(file);
    const georef::BlocSpace& space = file->header().space;
    const core::vec3 survey = core::transform(space.fromBlockToSurvey(), {3, 4, 2});
    EXPECT_NEAR(survey.x, 18, 1e-9);
    EXPECT_NEAR(survey.y, 56, 1e-9);
    EXPECT_NEAR(survey.z, 508, 1e-9);
    const core::vec3 world = core::transform(space.fromBlockToWorld(), {3, 4, 2});
    EXPECT_NEAR(world.x, (1000 + 300 + 120) / 10.0, 1e-6);
    EXPECT_NEAR(world.y, (5000 + 800 - 180) / 10.0, 1e-6);
    EXPECT_NEAR(world.z, 508, 1e-9);
}

TEST_F(SegyVolume, aRectangleOfLinesAndEverySecondOneHoldTheirOwnSamples)
{
    SegyMaker made;
    made.samples = 10;
    made.addSurvey(20, 30, 1, 100, 2);
    hv::segy::ImportChoice choice;
    choice.inlines = {8, 30, 2};
    choice.crosslines = {101, 140, 3};
    choice.samples = {2, 8, 3};
    const auto file = imported(made, choice);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->header().inlines(), 6);     // 9, 13, ... 29
    EXPECT_EQ(file->header().crosslines(), 7);  // 102, 108, ... 138
    EXPECT_EQ(file->header().sampleCount(), 3); // 2, 5, 8
    for (int i = 0; i < 6; ++i)
        for (int j = 0; j < 7; ++j) {
            const SegyMaker::Trace each{9 + 4 * i, 102 + 6 * j};
            const std::vector<float> got = trace(*file, each.inlineNumber, each.crosslineNumber);
            for (int k = 0; k < 3; ++k)
                ASSERT_EQ(got[static_cast<std::size_t>(k)], SegyMaker::sample(each, 2 + 3 * k));
        }
    const core::vec3 first = core::transform(file->header().space.fromBlockToSurvey(), {0, 0, 1});
    EXPECT_NEAR(first.z, 5 * 4, 1e-9);
    choice.inlines = {1000, 2000, 1};
    const auto found = scan(segy);
    EXPECT_TRUE(hv::segy::importSegy(*found, choice, volume, context)
                    .failure()
                    .sentence.contains(QStringLiteral("no inlines")));
}

TEST_F(SegyVolume, singleTracesAndSingleLinesAreVolumes)
{
    for (const auto& [inlines, crosslines] : {std::pair(1, 1), std::pair(1, 9), std::pair(9, 1)}) {
        SegyMaker made;
        made.samples = inlines * crosslines == 1 ? 1 : 3;
        made.addSurvey(inlines, crosslines);
        const auto file = imported(made);
        ASSERT_TRUE(file) << inlines << ' ' << crosslines;
        expectSamples(*file, made);
    }
}

TEST_F(SegyVolume, whatIsCancelledOrDoesNotFitLeavesNothingBehind)
{
    SegyMaker made;
    made.samples = 300;
    made.addSurvey(20, 20);
    const auto found = scan(made.write(segy));
    ASSERT_TRUE(found);
    hv::JobProgress stopped;
    hv::JobContext stop(stopped);
    stopped.cancel();
    EXPECT_FALSE(hv::segy::importSegy(*found, {}, volume, stop));
    EXPECT_EQ(filesLeft(), QStringList(QStringLiteral("made.sgy")));

    // A limit on the size of files stands for a full disk.
    const auto file = imported(made);
    ASSERT_TRUE(file);
    const QString out = folder.filePath(QStringLiteral("out.sgy"));
    const HVSegyDescription description(file->header().space, QStringLiteral("V"), georef::Domain::Time,
                                        georef::Unit::Milliseconds);
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit tight{100'000, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &tight), 0);
    const auto import = hv::segy::importSegy(*found, {}, folder.filePath(QStringLiteral("other.svol")), context);
    const auto exported = hv::segy::writeSegy(out, description, -9999, tracesOf(*file), context);
    HVSegyDescription leaving = description;
    leaving.setLeavesOutMissing(true);
    const auto late = hv::segy::writeSegy(out, leaving, -9999, tracesOf(*file), context);
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    ASSERT_FALSE(import);
    ASSERT_FALSE(exported);
    ASSERT_FALSE(late);
    EXPECT_EQ(exported.failure().sentence, QStringLiteral("\"out.sgy\" cannot be written: File too large."));
    EXPECT_EQ(late.failure().sentence, exported.failure().sentence);
    EXPECT_EQ(filesLeft(), (QStringList{QStringLiteral("made.sgy"), QStringLiteral("made.svol")}));
}

TEST_F(SegyVolume, aFileThatIsCutOffAfterTheScanFailsAndLeavesNothing)
{
    SegyMaker made;
    made.addSurvey(20, 20);
    const auto found = scan(made.write(segy));
    ASSERT_TRUE(found);
    ASSERT_TRUE(QFile::resize(segy, 9000));
    const auto result = hv::segy::importSegy(*found, {}, volume, context);
    ASSERT_FALSE(result);
    EXPECT_TRUE(result.failure().sentence.contains(QStringLiteral("it ends at byte 9000")));
    EXPECT_EQ(filesLeft(), QStringList(QStringLiteral("made.sgy")));
}

TEST_F(SegyVolume, whatIsWrittenIsReadBackAsItWas)
{
    SegyMaker made;
    made.samples = 6;
    made.interval = 2000;
    made.scalar = -10;
    made.change = [&made](QByteArray& header, int) { made.put16(header, 109, -40); };
    made.addSurvey(6, 5, 10, 50, 2);
    made.traces.erase(made.traces.begin() + 7);
    const auto file = imported(made);
    ASSERT_TRUE(file);
    const QString out = folder.filePath(QStringLiteral("out.sgy"));
    for (const auto format : {hv::segy::SampleFormat::Ibm, hv::segy::SampleFormat::Ieee})
        for (const bool leavesOut : {false, true}) {
            HVSegyDescription description(file->header().space, QStringLiteral("Amplitude"), georef::Domain::Time,
                                          georef::Unit::Milliseconds, *georef::Crs::fromAuthority("EPSG", "32631"));
            description.setFormat(format);
            description.setLeavesOutMissing(leavesOut);
            const auto written = hv::segy::writeSegy(out, description, -9999, tracesOf(*file), context);
            ASSERT_TRUE(written) << written.failure().sentence.toStdString();
            EXPECT_EQ(written->missing, 1);
            EXPECT_EQ(written->written, leavesOut ? 29 : 30);
            if (!leavesOut) {
                EXPECT_EQ(QFileInfo(out).size(), description.sizeInBytes());
            }
            const auto again = scan(out);
            ASSERT_TRUE(again);
            EXPECT_EQ(again->file->encoding(), hv::segy::TextEncoding::Ebcdic);
            const QString text = again->file->texts().front().join('\n');
            EXPECT_TRUE(text.contains(QStringLiteral("INLINES:    10 TO 20 BY 2 (6)"))) << text.toStdString();
            EXPECT_TRUE(text.contains(QStringLiteral("EPSG:32631")));
            EXPECT_TRUE(text.endsWith(QStringLiteral("C40 END TEXTUAL HEADER")));
            EXPECT_EQ(again->inlines, (hv::segy::LineRange{10, 20, 2}));
            EXPECT_EQ(again->crosslines, (hv::segy::LineRange{50, 58, 2}));
            EXPECT_EQ(again->firstSample, -40);
            EXPECT_EQ(again->interval, 2);
            ASSERT_TRUE(again->survey);
            EXPECT_LT(again->survey->largest, 0.01);
            const QString copy = folder.filePath(QStringLiteral("copy.svol"));
            ASSERT_TRUE(hv::segy::importSegy(*again, {}, copy, context));
            const auto back = hv::VolumeFile::open(copy);
            ASSERT_TRUE(back);
            expectSamples(**back, made);
            EXPECT_EQ(trace(**back, 12, 54), std::vector<float>(6, -9999.0F)) << "the missing one";
            for (int corner = 0; corner < 4; ++corner) {
                const core::vec3 cell{corner % 2 ? 4.0 : 0.0, corner / 2 ? 5.0 : 0.0, 3};
                const core::vec3 a = core::transform(file->header().space.fromBlockToWorld(), cell);
                const core::vec3 b = core::transform((*back)->header().space.fromBlockToWorld(), cell);
                EXPECT_NEAR(a.x, b.x, 0.01);
                EXPECT_NEAR(a.y, b.y, 0.01);
                EXPECT_NEAR(a.z, b.z, 1e-9);
            }
        }
}

TEST_F(SegyVolume, ownTextIsWrittenAndTooMuchOfItRefused)
{
    SegyMaker made;
    made.addSurvey(2, 2);
    const auto file = imported(made);
    ASSERT_TRUE(file);
    const QString out = folder.filePath(QStringLiteral("out.sgy"));
    HVSegyDescription description(file->header().space, QStringLiteral("V"), georef::Domain::Time,
                                  georef::Unit::Milliseconds);
    description.setTextualHeader(QStringLiteral("C 1 MY OWN\nC 2 %1").arg(QString(100, 'x')));
    ASSERT_TRUE(hv::segy::writeSegy(out, description, -9999, tracesOf(*file), context));
    const QStringList rows = scan(out)->file->texts().front();
    EXPECT_EQ(rows[0], QStringLiteral("C 1 MY OWN"));
    EXPECT_EQ(rows[1].size(), 80);
    EXPECT_EQ(rows[2], QString(24, 'x'));
    ASSERT_TRUE(QFile::remove(out));
    description.setTextualHeader(QString(41, '\n'));
    EXPECT_TRUE(
        hv::segy::writeSegy(out, description, -9999, tracesOf(*file), context).failure().sentence.contains("41 rows"));
    EXPECT_FALSE(QFile::exists(out));
}

TEST_F(SegyVolume, whatSegyCannotHoldIsRefusedBeforeAnythingIsWritten)
{
    const QString out = folder.filePath(QStringLiteral("out.sgy"));
    const hv::segy::ReadTraces never = [](int, int, int, float*) -> hv::Result<void> { return hv::Failure("read"); };
    const auto refusal = [&](const georef::BlocSpace& space, georef::Unit unit) {
        const HVSegyDescription description(space, {}, georef::Domain::Time, unit);
        const auto written = hv::segy::writeSegy(out, description, -9999, never, context);
        EXPECT_FALSE(QFile::exists(out));
        return written ? QString() : written.failure().sentence;
    };
    georef::BlocSpace space(3, 3, 3);
    ASSERT_TRUE(space.setSurveySpace(1, 3, 1, 3, 0, 8).empty());
    EXPECT_TRUE(refusal(space, georef::Unit::Milliseconds).contains("cannot be written: read"));
    EXPECT_TRUE(refusal(space, georef::Unit::Miles).contains("vertical unit"));
    georef::BlocSpace half = space;
    ASSERT_TRUE(half.setSurveySpace(1, 3, 1, 2, 0, 8).empty());
    EXPECT_TRUE(refusal(half, georef::Unit::Milliseconds).contains("line numbers are not whole"));
    georef::BlocSpace slow = space;
    ASSERT_TRUE(slow.setSurveySpace(1, 3, 1, 3, 0, 80).empty());
    EXPECT_TRUE(refusal(slow, georef::Unit::Milliseconds).contains("sample interval of 40"));
    georef::BlocSpace late = space;
    ASSERT_TRUE(late.setSurveySpace(1, 3, 1, 3, 1e6, 1e6 + 8).empty());
    EXPECT_TRUE(refusal(late, georef::Unit::Milliseconds).contains("begin at"));
    EXPECT_TRUE(refusal(georef::BlocSpace(2, 2, 70'000), georef::Unit::Milliseconds).contains("at most 65535"));
}

} // namespace
