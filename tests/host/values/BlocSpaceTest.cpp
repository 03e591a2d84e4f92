#include "host/georef/BlocSpace.h"

#include "host/georef/PointConversion.h"

#include <limits>
#include <vector>

using namespace georef;
using core::mat4;
using core::vec3;
using core::vec4;

namespace {

void expectNear(const vec3& found, const vec3& expected, double tolerance = 1e-7)
{
    for (int c = 0; c < 3; ++c)
        EXPECT_NEAR(found[c], expected[c], tolerance) << c;
}

/// A survey turned against the map: 25 m between crosslines, 12.5 m between inlines, 4 ms samples.
BlocSpace turnedSurvey()
{
    BlocSpace space(201, 101, 501);
    EXPECT_EQ(space.setSurveySpace(1000, 1400, 2000, 2500, 0, 2000), "");
    const vec3 origin(431000.0, 6721000.0, 0.0);
    EXPECT_EQ(space.setWorldSpace(origin, origin + vec3(4000, 3000, 0), origin + vec3(-750, 1000, 0),
                                  origin + vec3(0, 0, 2000)),
              "");
    return space;
}

} // namespace

TEST(BlocSpace, LineNumbersOfCells)
{
    const BlocSpace space = turnedSurvey();
    EXPECT_EQ(convertPoint(space, Frame::Block, Frame::Survey, vec3(0, 0, 0)), vec3(2000, 1000, 0));
    EXPECT_EQ(convertPoint(space, Frame::Block, Frame::Survey, vec3(200, 100, 500)), vec3(2500, 1400, 2000));
    EXPECT_EQ(convertPoint(space, Frame::Block, Frame::Survey, vec3(1, 0, 0)), vec3(2000, 1002, 0));
    EXPECT_EQ(space.crosslineResolution(), 2.0f);
    EXPECT_EQ(space.inlineResolution(), 5.0f);
    EXPECT_EQ(space.verticalResolution(), 4.0f);
    expectNear(convertPoint(space, Frame::Survey, Frame::World, vec3(2500, 1000, 8)), vec3(430250, 6722000, 8));

    const BlocSpace fresh(3, 4, 5);
    EXPECT_EQ(convertPoint(fresh, Frame::Block, Frame::Survey, vec3(1, 2, 3)), vec3(2, 1, 3));
    EXPECT_EQ(convertPoint(fresh, Frame::Survey, Frame::World, vec3(2, 1, 3)), vec3(1, 2, 3));
}

TEST(BlocSpace, RoundTrips)
{
    const BlocSpace space = turnedSurvey();
    std::vector<vec3> points;
    for (int i = 0; i < 2000; ++i)
        points.emplace_back(i % 201, i % 97, i % 503 + 0.5);
    const Frame frames[] = {Frame::Block, Frame::Survey, Frame::World};
    for (const Frame from : frames)
        for (const Frame to : frames) {
            std::vector<vec3> there(points.size());
            convertPoints(space, from, to, points.data(), there.data(), points.size());
            for (std::size_t i = 0; i < points.size(); ++i)
                ASSERT_EQ(there[i], convertPoint(space, from, to, points[i]));
            convertPoints(space, to, from, there.data(), there.data(), there.size());
            for (std::size_t i = 0; i < points.size(); ++i)
                expectNear(there[i], points[i], 1e-6);
        }
}

TEST(BlocSpace, SingleCells)
{
    BlocSpace space(1, 10, 1);
    ASSERT_EQ(space.setSurveySpace(500, 500, 100, 118, 1200, 1204), "");
    EXPECT_EQ(convertPoint(space, Frame::Block, Frame::Survey, vec3(1, 9, 1)), vec3(118, 501, 1204));
    ASSERT_EQ(space.setWorldSpace({0, 0, 0}, {25, 0, 0}, {0, 90, 0}, {0, 0, 3}), "");
    EXPECT_EQ(convertPoint(space, Frame::Block, Frame::World, vec3(1, 1, 1)), vec3(25, 10, 3));
}

TEST(BlocSpace, RefusalsChangeNothing)
{
    BlocSpace space = turnedSurvey();
    const BlocSpace before = space;
    const vec3 o(431000.0, 6721000.0, 0.0);
    // A plane that is not parallel to an axis, two equal points, a number missing, crossed lines of one number.
    EXPECT_NE(space.setWorldSpace(o, o + vec3(4000, 3000, 700), o + vec3(-750, 1000, 300),
                                  o + vec3(4000, 3000, 700) * 0.1 + vec3(-750, 1000, 300) * 0.7),
              "");
    EXPECT_NE(space.setWorldSpace(o, o, o + vec3(0, 1, 0), o + vec3(0, 0, 1)), "");
    EXPECT_NE(space.setWorldSpace(o, {std::numeric_limits<double>::quiet_NaN(), 0, 0}, {0, 1, 0}, {0, 0, 1}), "");
    EXPECT_NE(space.setSurveySpace(1, 1, 1, 2, 0, 4), "");
    EXPECT_NE(space.setFromBlockToSurvey(mat4(1.0)), "");
    EXPECT_NE(space.setFromWorldToBlock(mat4(std::numeric_limits<double>::infinity())), "");
    EXPECT_EQ(space, before);
    space.setExtents(0, 5, 5);
    EXPECT_NE(space.setWorldSpace({0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}), "");
    EXPECT_EQ(space.fromBlockToWorld(), before.fromBlockToWorld());
}

TEST(BlocSpace, EverySetterKeepsThePairInverse)
{
    const mat4 matrix({2, 0, 0, 10}, {0, 4, 0, 20}, {0, 1, 8, 30}, {0, 0, 0, 1});
    BlocSpace space(5, 5, 5);
    ASSERT_EQ(space.setFromSurveyToBlock(matrix), "");
    ASSERT_EQ(space.setFromBlockToWorld(matrix), "");
    EXPECT_EQ(space.fromSurveyToBlock(), matrix);
    EXPECT_EQ(space.fromBlockToSurvey() * matrix, mat4::identity());
    EXPECT_EQ(space.fromWorldToBlock(), space.fromBlockToSurvey());
    EXPECT_EQ(space.crosslineResolution(), 0.5f);
}
