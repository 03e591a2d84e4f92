// Lines on the map, their files, and the sections along them.
#include "VolumeTestData.h"
#include "host/volume/LineSection.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace {

using namespace hv;
using Frame = RandomLine::Frame;

class RandomLineTest : public ::testing::Test
{
protected:
    /// Inlines 1000, 1002...; crosslines 500, 501...; bins of 25 x 12.5 whose axes are turned by 30 degrees.
    void SetUp() override
    {
        VolumeHeader header = volumes::header(20, 30, 8);
        ASSERT_TRUE(header.space.setSurveySpace(500, 529, 1000, 1038, 0, 28).empty());
        const double c = std::cos(0.5236);
        const double s = std::sin(0.5236);
        const core::vec3 x(12.5 * 29 * c, 12.5 * 29 * s, 0);
        const core::vec3 y(-25.0 * 19 * s, 25.0 * 19 * c, 0);
        const core::vec3 origin(456000, 6782000, 0);
        ASSERT_TRUE(header.space.setWorldSpace(origin, origin + x, origin + y, {456000, 6782000, 28}).empty());
        volumes::make(m_folder.filePath(QStringLiteral("cube.svol")), header);
        m_volume = volumes::open(m_folder.filePath(QStringLiteral("cube.svol")));
    }
    LineSection section(const RandomLine& line, Interpolation interpolation, double spacing = 0.0) const
    {
        auto cut = sectionAlong(*m_volume, line, interpolation, spacing);
        EXPECT_TRUE(cut) << qPrintable(cut.failure().sentence);
        return std::move(*cut);
    }

    QTemporaryDir m_folder;
    std::shared_ptr<const VolumeFile> m_volume;
};

TEST_F(RandomLineTest, ALineAlongAnInlineIsThatInline)
{
    const RandomLine line{QStringLiteral("a"), Frame::Survey, {{1010, 500}, {1010, 529}}, {}};
    for (const Interpolation interpolation : {Interpolation::Nearest, Interpolation::Linear}) {
        const LineSection cut = section(line, interpolation);
        const std::vector<float> frame = volumes::frame(m_volume->header().space, georef::ScanOrientation::Inline, 5);
        ASSERT_EQ(cut.image->width(), 30);
        ASSERT_EQ(cut.image->height(), 8);
        EXPECT_EQ(std::vector<float>(cut.image->data(), cut.image->data() + cut.image->size()), frame);
        EXPECT_NEAR(cut.traces[2].inlineNumber, 1010, 1e-6);
        EXPECT_NEAR(cut.traces[2].crossline, 502, 1e-6);
        EXPECT_NEAR(cut.traces[29].distance, 29 * 12.5, 1e-6);
    }
}

TEST_F(RandomLineTest, WorldAndSurveyNodesMeanTheSamePlaces)
{
    const RandomLine survey{QStringLiteral("a"), Frame::Survey, {{1003, 504.2}, {1030, 520}, {1020, 525.5}}, {}};
    RandomLine world{QStringLiteral("a"), Frame::World, {}, {}};
    for (const core::vec2& cell : survey.inBlock(m_volume->header().space)) {
        const double c = std::cos(0.5236);
        const double s = std::sin(0.5236);
        world.nodes.push_back(
            {456000 + 12.5 * cell.x * c - 25 * cell.y * s, 6782000 + 12.5 * cell.x * s + 25 * cell.y * c});
    }
    const LineSection a = section(survey, Interpolation::Linear);
    const LineSection b = section(world, Interpolation::Linear);
    ASSERT_EQ(a.traces.size(), b.traces.size());
    for (std::size_t i = 0; i < a.traces.size(); ++i) {
        EXPECT_NEAR(a.traces[i].inlineNumber, b.traces[i].inlineNumber, 1e-5);
        EXPECT_NEAR(a.traces[i].x, b.traces[i].x, 1e-4);
        // The samples are linear in the indices, so blending them gives them exactly, but for rounding.
        const double inlineIndex = (a.traces[i].inlineNumber - 1000) / 2;
        const double crossline = a.traces[i].crossline - 500;
        EXPECT_NEAR(a.image->value(static_cast<int>(i), 3), inlineIndex * 65536 + crossline * 256 + 3, 1.0);
    }
    EXPECT_NEAR(a.traces.front().crossline, 504.2, 1e-6);
    EXPECT_NEAR(a.traces.back().inlineNumber, 1020, 1e-6);
}

TEST_F(RandomLineTest, OutsideOfTheVolumeThereIsNoValue)
{
    const RandomLine line{QStringLiteral("a"), Frame::Survey, {{1010, 490}, {1010, 540}}, {}};
    const LineSection cut = section(line, Interpolation::Linear);
    ASSERT_EQ(cut.image->width(), 51);
    EXPECT_EQ(cut.image->value(9, 0), -9999.0f);
    EXPECT_EQ(cut.image->value(10, 0), volumes::sampleAt(5, 0, 0));
    EXPECT_EQ(cut.image->value(39, 7), volumes::sampleAt(5, 29, 7));
    EXPECT_EQ(cut.image->value(40, 7), -9999.0f);
}

TEST_F(RandomLineTest, TheSpacingIsInTheUnitOfTheMap)
{
    const RandomLine line{QStringLiteral("a"), Frame::Survey, {{1010, 500}, {1010, 520}}, {}};
    const LineSection cut = section(line, Interpolation::Nearest, 50.0);
    ASSERT_EQ(cut.image->width(), 6);
    EXPECT_NEAR(cut.traces[1].distance, 50.0, 1e-6);
    EXPECT_FALSE(sectionAlong(*m_volume, line, Interpolation::Nearest, 1e-9)) << "too many";
    EXPECT_FALSE(sectionAlong(*m_volume, line, Interpolation::Nearest, -1.0));
    EXPECT_FALSE(sectionAlong(*m_volume, line, Interpolation::Nearest, NAN));
    EXPECT_FALSE(sectionAlong(*m_volume, {QString(), Frame::Survey, {{1, 1}, {1, 1}}, {}}, Interpolation::Nearest));
    EXPECT_FALSE(sectionAlong(*m_volume, {QString(), Frame::Survey, {{0, 0}, {1e300, 1}}, {}}, Interpolation::Nearest));
}

TEST_F(RandomLineTest, TheFileIsGeoJsonAndComesBack)
{
    const georef::Crs crs = *georef::Crs::fromAuthority(QStringLiteral("EPSG"), QStringLiteral("32631"));
    for (const Frame frame : {Frame::World, Frame::Survey}) {
        const RandomLine line{QStringLiteral("Über alles"),
                              frame,
                              {{0.1, 2}, {3, 4.25}, {-5, 6}},
                              frame == Frame::World ? crs : georef::Crs()};
        const QByteArray text = randomLineText(line);
        EXPECT_EQ(QJsonDocument::fromJson(text).object().value(QLatin1String("type")),
                  QLatin1String("FeatureCollection"));
        const auto read = parseRandomLine(text);
        ASSERT_TRUE(read) << qPrintable(read.failure().sentence);
        EXPECT_EQ(read->name, line.name);
        EXPECT_EQ(read->frame, line.frame);
        EXPECT_EQ(read->crs, line.crs);
        ASSERT_EQ(read->nodes.size(), 3u);
        EXPECT_EQ(read->nodes[1].y, 4.25);
        EXPECT_EQ(randomLineText(*read), text);
    }
}

TEST_F(RandomLineTest, DamagedFilesAreRefusedWithTheReason)
{
    const QByteArray sound = randomLineText({QStringLiteral("a"), Frame::World, {{0, 2}, {3, 4}}, {}});
    const auto refusal = [](const QByteArray& text) {
        const auto read = parseRandomLine(text);
        return read ? QStringLiteral("(read)") : read.failure().sentence;
    };
    EXPECT_EQ(refusal(sound), QStringLiteral("(read)"));
    EXPECT_TRUE(refusal(sound.left(sound.size() / 2)).startsWith(QStringLiteral("line ")));
    EXPECT_TRUE(refusal("{}").contains(QStringLiteral("one line")));
    EXPECT_TRUE(refusal(QByteArray(sound).replace("LineString", "Polygon")).contains(QStringLiteral("one line")));
    EXPECT_TRUE(refusal(QByteArray(sound).replace("\"world\"", "\"moon\"")).contains(QStringLiteral("\"frame\"")));
    EXPECT_TRUE(refusal(R"({"features":[{"geometry":{"type":"LineString","coordinates":[[1,2],["x",2]]}}]})")
                    .contains(QStringLiteral("two numbers")));
    EXPECT_TRUE(refusal(R"({"features":[{"geometry":{"type":"LineString","coordinates":[[1,2]]}}]})")
                    .contains(QStringLiteral("two nodes")));
}

} // namespace
