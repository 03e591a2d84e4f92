#include "host/img/Image3d.h"
#include "host/services/HVMemory.h"

#include <limits>
#include <numeric>

using namespace img;
using georef::ScanOrientation;

namespace {

constexpr int Width = 37, Height = 41, Length = 53;

std::unique_ptr<Image3d> numberedCube()
{
    auto cube = Image3d::create(Width, Height, Length, QStringLiteral("cube"));
    std::iota(cube->data(), cube->data() + cube->size(), 0.0f);
    return cube;
}

} // namespace

TEST(Image2d, ExtentsAndContent)
{
    auto image = Image2d::create(4, 3, QStringLiteral("map"));
    ASSERT_TRUE(image);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(image->data()) % 64, 0u);
    EXPECT_EQ(image->minValue(), NoValue);
    std::iota(image->data(), image->data() + 12, 0.0f);
    EXPECT_EQ(image->value(3, 2), image->data()[2 * 4 + 3]);
    EXPECT_EQ(image->average(), 5.5);

    ASSERT_TRUE(image->resize(5, 2));
    EXPECT_EQ(image->value(3, 1), 7.0f);
    EXPECT_EQ(image->value(4, 1), NoValue);
    ASSERT_TRUE(image->resize(2, 3));
    EXPECT_EQ(image->value(1, 1), 5.0f);
    EXPECT_EQ(image->value(0, 2), NoValue);

    const float pixels[6] = {1, 2, 3, 4, 5, 6};
    EXPECT_FALSE(image->fill(pixels, 5));
    ASSERT_TRUE(image->fill(pixels, 6));
    EXPECT_EQ(image->maxValue(), 6.0f);
    const auto copy = image->clone();
    image->fill(2.0f);
    EXPECT_EQ(image->standardDeviation(), 0.0);
    EXPECT_EQ(copy->value(1, 2), 6.0f);
    EXPECT_EQ(copy->name(), QStringLiteral("map"));

    EXPECT_FALSE(Image2d::create(0, 10));
    EXPECT_FALSE(image->resize(1, -1));
    EXPECT_FALSE(Image3d::create(std::numeric_limits<int>::max(), std::numeric_limits<int>::max(), 2));
    image->exports().add();
    EXPECT_FALSE(image->resize(1, 1));
    EXPECT_EQ(image->size(), 6);
    image->exports().release();
    EXPECT_TRUE(image->resize(1, 1));
}

TEST(Image2d, TransposeOfAnySize)
{
    const int sizes[][2] = {{1, 1}, {1, 100}, {31, 33}, {32, 64}, {65, 129}, {192, 130}, {257, 3}};
    for (const auto& size : sizes) {
        const auto image = Image2d::create(size[0], size[1]);
        std::iota(image->data(), image->data() + image->size(), 0.0f);
        const auto turned = image->transposed();
        ASSERT_EQ(turned->width(), size[1]);
        ASSERT_EQ(turned->height(), size[0]);
        for (int y = 0; y < size[1]; ++y)
            for (int x = 0; x < size[0]; ++x)
                ASSERT_EQ(turned->value(y, x), image->value(x, y));
    }
}

TEST(Image3d, FramesInAllOrientations)
{
    const auto cube = numberedCube();
    const auto inlineFrame = cube->frame(ScanOrientation::Inline, 40);
    const auto crosslineFrame = cube->frame(ScanOrientation::Crossline, 36);
    const auto slice = cube->frame(ScanOrientation::Timeslice, 52);
    ASSERT_TRUE(inlineFrame && crosslineFrame && slice);
    EXPECT_EQ(slice->width(), Width);
    EXPECT_EQ(slice->height(), Height);
    for (int z = 0; z < Length; ++z)
        for (int y = 0; y < Height; ++y)
            for (int x = 0; x < Width; ++x) {
                const float expected = static_cast<float>((z * Height + y) * Width + x);
                ASSERT_EQ(cube->value(x, y, z), expected);
                if (y == 40) {
                    ASSERT_EQ(inlineFrame->value(x, z), expected);
                }
                if (x == 36) {
                    ASSERT_EQ(crosslineFrame->value(y, z), expected);
                }
                if (z == 52) {
                    ASSERT_EQ(slice->value(x, y), expected);
                }
            }

    for (const auto orientation : {ScanOrientation::Inline, ScanOrientation::Crossline, ScanOrientation::Timeslice}) {
        auto rebuilt = Image3d::create(Width, Height, Length);
        for (int i = 0; i < cube->frameCount(orientation); ++i) {
            const auto frame = cube->frame(orientation, i);
            ASSERT_EQ(frame->width(), cube->frameWidth(orientation));
            ASSERT_EQ(frame->height(), cube->frameHeight(orientation));
            ASSERT_TRUE(rebuilt->setFrame(orientation, i, *frame));
        }
        EXPECT_TRUE(std::equal(cube->data(), cube->data() + cube->size(), rebuilt->data()));
        EXPECT_FALSE(cube->frame(orientation, -1));
        EXPECT_FALSE(cube->frame(orientation, cube->frameCount(orientation)));
        EXPECT_FALSE(rebuilt->setFrame(orientation, cube->frameCount(orientation), *cube->frame(orientation, 0)));
        EXPECT_FALSE(rebuilt->setFrame(orientation, 0, *cube->frame(orientation, 0)->transposed()));
    }
    EXPECT_EQ(cube->frameCount(static_cast<ScanOrientation>(3)), 0);
    EXPECT_FALSE(cube->frame(static_cast<ScanOrientation>(3), 0));
}

TEST(Image3d, BlocSpaceFollowsTheExtents)
{
    const auto cube = numberedCube();
    EXPECT_EQ(cube->blocSpace(), georef::BlocSpace(Width, Height, Length));
    EXPECT_FALSE(cube->setBlocSpace(georef::BlocSpace(Width, Height, 1)));
    georef::BlocSpace space(Width, Height, Length);
    ASSERT_EQ(space.setSurveySpace(100, 136, 200, 280, 0, 208), "");
    ASSERT_TRUE(cube->setBlocSpace(space));
    ASSERT_TRUE(cube->resize(Width - 1, Height + 1, Length));
    EXPECT_EQ(cube->value(3, 40, 52), static_cast<float>((52 * Height + 40) * Width + 3));
    EXPECT_EQ(cube->value(3, 41, 52), NoValue);
    EXPECT_EQ(cube->blocSpace().height(), Height + 1);
    EXPECT_EQ(cube->blocSpace().inlineResolution(), 2.0f);
    EXPECT_EQ(cube->clone()->blocSpace(), cube->blocSpace());
}

TEST(Memory, SystemAnswerAndOverride)
{
    const std::int64_t real = hv::availableMemory();
    EXPECT_GT(real, 1 << 20);
    EXPECT_LT(real, std::int64_t(1) << 50);
    {
        const hv::AvailableMemoryOverride little([] { return std::int64_t(1000); });
        EXPECT_EQ(hv::availableMemory(), 1000);
    }
    EXPECT_GT(hv::availableMemory(), 1 << 20);
}
