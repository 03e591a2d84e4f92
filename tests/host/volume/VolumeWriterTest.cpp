// Samples that come in any order end up in their places, and what is not finished was never there.
#include "VolumeTestData.h"
#include "host/img/Statistics.h"
#include "host/jobs/JobContext.h"

#include <QDir>

#include <algorithm>
#include <numeric>
#include <random>

namespace {

using namespace hv;
using georef::ScanOrientation;
using Sorting = VolumeWriter::Sorting;

class VolumeWriterTest : public ::testing::Test
{
protected:
    QString path() const { return m_folder.filePath(QStringLiteral("cube.svol")); }
    std::unique_ptr<VolumeWriter> create(const VolumeHeader& header, const VolumeOrders& orders, Sorting sorting)
    {
        auto writer = VolumeWriter::create(path(), header, orders, sorting);
        EXPECT_TRUE(writer) << qPrintable(writer.failure().sentence);
        return std::move(*writer);
    }
    QStringList entries() const
    {
        return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    QTemporaryDir m_folder;
};

TEST_F(VolumeWriterTest, TracesOfAnyOrderComeToTheirPlaces)
{
    const VolumeHeader header = volumes::header(19, 13, 70);
    std::mt19937 random(7);
    for (const Sorting sorting : {Sorting::Inline, Sorting::Crossline})
        for (const VolumeOrders orders : {VolumeOrders{true, true}, VolumeOrders{false, true}}) {
            std::vector<int> places(19 * 13);
            std::iota(places.begin(), places.end(), 0);
            std::shuffle(places.begin(), places.end(), random);
            auto writer = create(header, orders, sorting);
            for (const int place : places)
                ASSERT_TRUE(writer->writeTraces(place / 13, place % 13, 1,
                                                volumes::traces(header, place / 13, place % 13, 1).data()));
            ASSERT_TRUE(writer->finish(nullptr));
            const auto file = volumes::open(path());
            volumes::expectSamples(*file);
            EXPECT_EQ(file->fileSize(), file->layout().fileSize(header.space)) << "nothing of the work is left in it";
            EXPECT_EQ(file->header().statistics->maximum, volumes::sampleAt(18, 12, 69));
        }
}

TEST_F(VolumeWriterTest, WholeLinesAndFramesAreTheSameAsTraces)
{
    const VolumeHeader header = volumes::header(5, 7, 9);
    for (const Sorting sorting : {Sorting::Inline, Sorting::Crossline}) {
        auto writer = create(header, {}, sorting);
        for (int i = 0; i < 4; ++i)
            ASSERT_TRUE(writer->writeInline(i, volumes::frame(header.space, ScanOrientation::Inline, i).data()));
        for (int x = 0; x < 7; ++x)
            ASSERT_TRUE(writer->writeCrosslineTraces(x, 4, 1, volumes::traces(header, 4, x, 1).data()));
        ASSERT_TRUE(writer->finish(nullptr));
        volumes::expectSamples(*volumes::open(path()));
    }
}

TEST_F(VolumeWriterTest, WhatNeverCameHasNoValueAndDoesNotCount)
{
    VolumeHeader header = volumes::header(6, 5, 4);
    header.noValue = 1e30f;
    auto writer = create(header, {}, Sorting::Inline);
    ASSERT_TRUE(writer->writeTraces(2, 1, 2, volumes::traces(header, 2, 1, 2).data()));
    ASSERT_TRUE(writer->finish(nullptr));
    const auto file = volumes::open(path());
    EXPECT_EQ(*file->sample(2, 0, 0), 1e30f);
    EXPECT_EQ(*file->sample(5, 4, 3), 1e30f);
    EXPECT_EQ(*file->sample(2, 2, 3), volumes::sampleAt(2, 2, 3));
    EXPECT_EQ(file->header().statistics->count, 8);
    EXPECT_EQ(file->header().statistics->maximum, volumes::sampleAt(2, 2, 3));
    // All of it.
    ASSERT_TRUE(create(header, {}, Sorting::Inline)->finish(nullptr));
    EXPECT_EQ(volumes::open(path())->header().statistics->count, 0);
}

TEST_F(VolumeWriterTest, StatisticsAreThoseOfTheSamples)
{
    const VolumeHeader header = volumes::header(60, 50, 40);
    std::mt19937 random(3);
    std::normal_distribution<float> normal(100.0f, 25.0f);
    std::vector<float> all(60 * 50 * 40);
    std::generate(all.begin(), all.end(), [&] { return normal(random); });
    auto writer = create(header, {}, Sorting::Inline);
    for (int i = 0; i < 60; ++i)
        ASSERT_TRUE(writer->writeTraces(i, 0, 50, all.data() + i * 50 * 40));
    ASSERT_TRUE(writer->finish(nullptr));
    const auto statistics = volumes::open(path())->header().statistics;
    const img::Statistics expected = img::statistics(all.data(), static_cast<std::int64_t>(all.size()));
    ASSERT_TRUE(statistics);
    EXPECT_EQ(statistics->count, expected.count);
    EXPECT_NEAR(statistics->mean, expected.mean, 1e-9);
    EXPECT_NEAR(statistics->deviation, expected.deviation, 1e-9);
    EXPECT_EQ(statistics->minimum, expected.minimum);
    EXPECT_EQ(statistics->maximum, expected.maximum);
    std::sort(all.begin(), all.end());
    for (const double percent : {0.1, 2.0, 50.0, 60.0, 98.0, 99.9}) {
        const float exact = all[static_cast<std::size_t>(percent / 100.0 * (all.size() - 1))];
        EXPECT_NEAR(*statistics->percentile(percent), exact, percent == 60.0 ? 2.0 : std::abs(exact) * 0.01) << percent;
    }
}

TEST_F(VolumeWriterTest, InfiniteSamplesLeaveTheFileReadable)
{
    auto writer = create(volumes::header(1, 1, 3), {}, Sorting::Inline);
    const float samples[] = {1.0f, HUGE_VALF, NAN};
    ASSERT_TRUE(writer->writeTraces(0, 0, 1, samples));
    ASSERT_TRUE(writer->finish(nullptr));
    EXPECT_EQ(*volumes::open(path())->sample(0, 0, 1), HUGE_VALF);
}

TEST_F(VolumeWriterTest, WithoutAnEndNothingIsLeftAndWhatWasThereStays)
{
    const VolumeHeader header = volumes::header(9, 8, 7);
    volumes::make(path(), header);
    create(volumes::header(2, 2, 2), {}, Sorting::Inline).reset();
    EXPECT_EQ(entries(), QStringList(QStringLiteral("cube.svol")));
    {
        auto writer = create(volumes::header(2, 2, 2), {}, Sorting::Inline);
        JobProgress progress;
        JobContext context(progress);
        progress.cancel();
        EXPECT_FALSE(writer->finish(&context));
        EXPECT_EQ(entries(), QStringList(QStringLiteral("cube.svol"))) << "at once, not when the writer goes";
    }
    volumes::expectSamples(*volumes::open(path()));
}

TEST_F(VolumeWriterTest, WhatCannotBeWrittenIsRefusedBeforeAnyWork)
{
    const auto refusal = [this](const VolumeHeader& header, const QString& at) {
        const auto writer = VolumeWriter::create(at, header, {});
        return writer ? QStringLiteral("(created)") : writer.failure().sentence;
    };
    EXPECT_TRUE(refusal(volumes::header(0, 1, 1), path()).contains(QStringLiteral("cube.svol")));
    EXPECT_TRUE(refusal(volumes::header(1, 1, 1), m_folder.filePath(QStringLiteral("none/cube.svol")))
                    .contains(QStringLiteral("No such file")));
    // No disk of this machine has a petabyte.
    EXPECT_TRUE(refusal(volumes::header(50000, 50000, 100000), path()).contains(QStringLiteral("Unable to write")));
    VolumeHeader header = volumes::header(1, 1, 1);
    header.note(QString(100000, QLatin1Char('x')));
    EXPECT_TRUE(refusal(header, path()).contains(QStringLiteral("longer than")));
    EXPECT_TRUE(entries().isEmpty());
    auto writer = create(volumes::header(2, 3, 4), {}, Sorting::Inline);
    const std::vector<float> samples(100);
    EXPECT_FALSE(writer->writeTraces(2, 0, 1, samples.data()));
    EXPECT_FALSE(writer->writeTraces(0, 2, 2, samples.data()));
    EXPECT_FALSE(writer->writeTraces(0, -1, 1, samples.data()));
    EXPECT_FALSE(writer->writeInline(-1, samples.data()));
}

} // namespace
