// The demonstration project: the same earth every time, and an earth that holds together.
#include "host/data/demo/DemoProject.h"

#include "TestFiles.h"
#include "host/data/HVProject.h"
#include "host/kinds/demo/SyntheticSurvey.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <array>

namespace {

using Survey = demo::SyntheticSurvey;

TEST(DemoProject, twoRunsAreTheSameToTheByte)
{
    const QTemporaryDir temporary;
    QStringList told;
    const auto tell = [&](const QString& what) { told << what; };
    ASSERT_EQ(reason(demo::makeProject(temporary.filePath("a"), tell)), QString());
    EXPECT_EQ(told.size(), static_cast<int>(demo::steps().size()));
    ASSERT_EQ(reason(demo::makeProject(temporary.filePath("b"), tell)), QString());
    EXPECT_FALSE(demo::makeProject(temporary.filePath("a"), tell)) << "nothing is overwritten";
    const auto a = *HVProject::open(temporary.filePath("a"));
    const auto b = *HVProject::open(temporary.filePath("b"));
    EXPECT_EQ(a->crs().authorityCode(), "32631");
    ASSERT_EQ(a->objects().size(), 10);
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(readFile(a->objects()[i]), readFile(b->objects()[i]));
    EXPECT_EQ(a->objectsInDirectory(ObjectKind::Well, "Exploration"), a->objects(ObjectKind::Well));

    const QByteArray outline = readFile(a->filename(ObjectKind::Culture, "Survey Outline"));
    const QJsonArray ring = QJsonDocument::fromJson(outline)["features"][0]["geometry"]["coordinates"][0].toArray();
    ASSERT_GT(ring.size(), 5);
    EXPECT_EQ(ring.first(), ring.last());
    for (const QString& path : a->objects(ObjectKind::Well)) {
        const QList<QByteArray> rows = readFile(path).split('\n');
        double last = -1.0;
        for (int i = rows.indexOf("~A DEPTH TWT GR") + 1; i + 1 < rows.size(); ++i) {
            const QList<QByteArray> columns = rows[i].simplified().split(' ');
            ASSERT_EQ(columns.size(), 3) << rows[i].toStdString();
            ASSERT_GT(columns[0].toDouble(), last);
            last = columns[0].toDouble();
        }
    }
}

TEST(SyntheticSurvey, layersFaultChannelAndMissingCorner)
{
    int live = 0;
    for (int i = Survey::firstInline; i < Survey::firstInline + Survey::inlineCount; ++i)
        for (int x = Survey::firstCrossline; x < Survey::firstCrossline + Survey::crosslineCount; ++x) {
            live += Survey::isLive(i, x);
            for (int layer = 1; layer < Survey::layerCount; ++layer)
                ASSERT_GT(Survey::layerTime(layer, i, x), Survey::layerTime(layer - 1, i, x) + 20.0) << i << ' ' << x;
            ASSERT_LT(Survey::layerTime(Survey::layerCount - 1, i, x), Survey::sampleCount * Survey::sampleInterval);
        }
    const int all = Survey::inlineCount * Survey::crosslineCount;
    EXPECT_LT(live, all);
    EXPECT_GT(live, all * 9 / 10);
    EXPECT_FALSE(Survey::isLive(Survey::firstInline - 1, Survey::firstCrossline));

    // Across the fault the deep layers jump by its throw, the seabed does not.
    const auto jump = [](int layer) {
        double greatest = 0.0;
        for (int x = Survey::firstCrossline + 1; x < Survey::firstCrossline + Survey::crosslineCount; ++x)
            greatest = std::max(greatest, Survey::layerTime(layer, 1100, x) - Survey::layerTime(layer, 1100, x - 1));
        return greatest;
    };
    EXPECT_LT(jump(0), 1.0);
    EXPECT_NEAR(jump(5), Survey::faultThrow(1370.0), 4.0);

    std::array<float, Survey::sampleCount> trace{};
    Survey::trace(1064, 5056, trace);
    // Amplitudes stand where the layers are: the seabed is a peak, the channel's top a strong trough.
    const auto at = [&](double time) {
        return trace[static_cast<std::size_t>(std::lround(time / Survey::sampleInterval))];
    };
    EXPECT_GT(at(Survey::layerTime(0, 1064, 5056)), 0.35F);
    EXPECT_LT(at(Survey::layerTime(Survey::channelLayer, 1064, 5056)), -0.4F);
    EXPECT_LT(std::abs(at(100.0)), 0.05F);
    std::array<float, Survey::sampleCount> again{};
    Survey::trace(1064, 5056, again);
    EXPECT_EQ(trace, again);
    Survey::trace(Survey::firstInline + Survey::inlineCount - 1, Survey::firstCrossline + Survey::crosslineCount - 1,
                  again);
    EXPECT_EQ(again, (std::array<float, Survey::sampleCount>{}));
}

} // namespace
