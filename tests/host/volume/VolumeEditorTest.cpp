// Samples that are changed where they lie are right in every direction, also after a program that ended in between.
#include "host/volume/VolumeEditor.h"

#include "VolumeTestData.h"

#include <cerrno>
#include <random>
#include <sys/file.h>

namespace {

using namespace hv;
using georef::ScanOrientation;

class VolumeEditorTest : public ::testing::Test
{
protected:
    void SetUp() override { volumes::make(path(), m_header); }
    QString path() const { return m_folder.filePath(QStringLiteral("cube.svol")); }
    std::shared_ptr<VolumeEditor> edit() const
    {
        auto editor = VolumeEditor::open(path());
        EXPECT_TRUE(editor) << qPrintable(editor.failure().sentence);
        return editor ? *editor : nullptr;
    }
    /// Every sample, read in every direction.
    void expectSamples(const std::vector<float>& expected) const
    {
        const auto file = volumes::open(path());
        for (const ScanOrientation orientation : scanOrientations)
            for (int index = 0; index < file->shape(orientation).count; ++index) {
                const std::vector<float> frame = volumes::readFrame(*file, orientation, index);
                const CellRegion cells = frameRegion(m_header.space, orientation, index);
                auto next = frame.begin();
                for (int k = cells.firstSample; k < cells.endSample; ++k)
                    for (int i = cells.firstInline; i < cells.endInline; ++i)
                        for (int x = cells.firstCrossline; x < cells.endCrossline; ++x)
                            ASSERT_EQ(*next++, expected[at(i, x, k)])
                                << int(orientation) << ' ' << i << ' ' << x << ' ' << k;
            }
    }
    std::size_t at(int i, int x, int k) const
    {
        return (static_cast<std::size_t>(i) * 9 + static_cast<std::size_t>(x)) * 13 + static_cast<std::size_t>(k);
    }
    std::vector<float> samples() const
    {
        std::vector<float> all;
        for (int i = 0; i < 11; ++i)
            for (int x = 0; x < 9; ++x)
                for (int k = 0; k < 13; ++k)
                    all.push_back(volumes::sampleAt(i, x, k));
        return all;
    }

    QTemporaryDir m_folder;
    const VolumeHeader m_header = volumes::header(11, 9, 13);
};

TEST_F(VolumeEditorTest, FramesOfEveryOrientationChangeEveryOrder)
{
    std::vector<float> expected = samples();
    float value = -1.0f;
    for (const ScanOrientation orientation : scanOrientations) {
        const auto editor = edit();
        for (const int index : {0, 4, frameShape(m_header.space, orientation).count - 1}) {
            std::vector<float> frame;
            const CellRegion cells = frameRegion(m_header.space, orientation, index);
            for (int k = cells.firstSample; k < cells.endSample; ++k)
                for (int i = cells.firstInline; i < cells.endInline; ++i)
                    for (int x = cells.firstCrossline; x < cells.endCrossline; ++x)
                        frame.push_back(expected[at(i, x, k)] = value--);
            ASSERT_TRUE(editor->writeFrame(orientation, index, frame.data()));
        }
        ASSERT_TRUE(editor->flush());
        expectSamples(expected);
    }
    const auto file = volumes::open(path());
    EXPECT_EQ(file->header().statistics->minimum, value + 1) << "statistics are of the file as it is";
    EXPECT_FALSE(edit()->writeFrame(ScanOrientation::Inline, 11, expected.data()));
}

TEST_F(VolumeEditorTest, ScatteredRegionsChangeEveryOrder)
{
    std::vector<float> expected = samples();
    std::mt19937 random(11);
    const auto range = [&](int extent) {
        const int a = static_cast<int>(random() % static_cast<unsigned>(extent));
        const int b = static_cast<int>(random() % static_cast<unsigned>(extent));
        return std::pair(std::min(a, b), std::max(a, b) + 1);
    };
    for (int round = 0; round < 20; ++round) {
        auto editor = edit();
        for (int piece = 0; piece < 1 + round; ++piece) {
            const auto [i0, i1] = range(round < 10 ? 2 : 11); // few cells, and many
            const auto [x0, x1] = range(round < 10 ? 2 : 9);
            const auto [k0, k1] = range(13);
            std::vector<float> values;
            for (int i = i0; i < i1; ++i)
                for (int x = x0; x < x1; ++x)
                    for (int k = k0; k < k1; ++k)
                        values.push_back(expected[at(i, x, k)] = static_cast<float>(random() % 100000));
            ASSERT_TRUE(editor->writeRegion({i0, i1, x0, x1, k0, k1}, values.data()));
        }
        editor.reset(); // flushes
        expectSamples(expected);
    }
    EXPECT_FALSE(edit()->writeRegion({0, 12, 0, 1, 0, 1}, expected.data()));
    EXPECT_FALSE(edit()->writeRegion({1, 1, 0, 1, 0, 1}, expected.data()));
}

TEST_F(VolumeEditorTest, AnOrderThatIsNotUpToDateIsMarkedAndNotRead)
{
    std::vector<float> expected = samples();
    const auto editor = edit();
    std::vector<float> frame(9 * 13, 5.0f);
    ASSERT_TRUE(editor->writeFrame(ScanOrientation::Inline, 3, frame.data()));
    for (int x = 0; x < 9; ++x)
        for (int k = 0; k < 13; ++k)
            expected[at(3, x, k)] = 5.0f;
    const auto file = volumes::open(path());
    EXPECT_FALSE(file->order(ScanOrientation::Crossline));
    EXPECT_FALSE(file->order(ScanOrientation::Timeslice));
    expectSamples(expected);
    ASSERT_TRUE(editor->flush());
    EXPECT_TRUE(volumes::open(path())->order(ScanOrientation::Crossline));
}

TEST_F(VolumeEditorTest, OrdersThatACrashLeftBehindAreMadeAnew)
{
    // As a program that was killed between the inline order and the others leaves the file.
    const auto whole = volumes::open(path());
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    QByteArray line = file.readLine();
    line.replace(R"("order":"crossline","state":"whole")", R"("order":"crossline","state":"stale")");
    file.seek(0);
    file.write(line + line);
    file.seek(whole->layout().order(ScanOrientation::Crossline)->offset);
    file.write(QByteArray(1000, 'x'));
    file.close();
    expectSamples(samples());
    EXPECT_FALSE(volumes::open(path())->order(ScanOrientation::Crossline));
    edit();
    EXPECT_TRUE(volumes::open(path())->order(ScanOrientation::Crossline));
    expectSamples(samples());
}

TEST_F(VolumeEditorTest, OneEditorPerFileAndOneProgramAtATime)
{
    const auto editor = edit();
    EXPECT_EQ(editor, edit());
    const QString other = m_folder.filePath(QStringLiteral("other.svol"));
    volumes::make(other, m_header);
    QFile file(other);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_EQ(flock(file.handle(), LOCK_EX | LOCK_NB), 0); // as another program would
    const auto refused = VolumeEditor::open(other);
    ASSERT_FALSE(refused);
    EXPECT_TRUE(refused.failure().sentence.contains(QStringLiteral("another program")))
        << qPrintable(refused.failure().sentence);
    EXPECT_EQ(VolumeEditor::open(m_folder.filePath(QStringLiteral("none.svol"))).failure().systemError, ENOENT);
}

TEST_F(VolumeEditorTest, OrdersAreMadeAndForgotten)
{
    for (const VolumeOrders orders : {VolumeOrders{false, false}, VolumeOrders{true, false}, VolumeOrders{false, true},
                                      VolumeOrders{true, true}, VolumeOrders{false, true}}) {
        ASSERT_TRUE(edit()->setOrders(orders));
        const auto file = volumes::open(path());
        EXPECT_EQ(file->layout().orders(), orders);
        expectSamples(samples());
    }
    ASSERT_TRUE(edit()->setOrders({false, false}));
    EXPECT_LT(volumes::open(path())->fileSize(), volumeHeaderBytes * 2 + 11 * 9 * 13 * 4 + 1) << "their room is free";
}

TEST_F(VolumeEditorTest, TextsOfTheHeaderChangeAndItsGeometryDoesNot)
{
    VolumeHeader header = edit()->header();
    header.note(QStringLiteral("Filtered"));
    ASSERT_TRUE(edit()->setHeader(header));
    EXPECT_EQ(volumes::open(path())->header().history, header.history);
    header.note(QString(70000, QLatin1Char('x')));
    EXPECT_FALSE(edit()->setHeader(header));
    VolumeHeader other = m_header;
    other.space = georef::BlocSpace(13, 9, 11);
    EXPECT_FALSE(edit()->setHeader(other));
    expectSamples(samples());
}

} // namespace
