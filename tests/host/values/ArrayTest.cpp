#include "host/core/Array.h"

#include <limits>
#include <numeric>

using namespace core;

template <typename T>
class Arrays : public testing::Test
{};
using ElementTypes = testing::Types<std::int32_t, float, double, vec3>;
TYPED_TEST_SUITE(Arrays, ElementTypes);

namespace {

template <typename T>
T element(int i)
{
    if constexpr (std::is_arithmetic_v<T>)
        return static_cast<T>(i);
    else
        return T(i, i + 0.25, -i);
}

template <typename T>
void fillWithNumbers(Array<T>& array, int count)
{
    for (int i = 0; i < count; ++i)
        ASSERT_TRUE(array.append(element<T>(i)));
}

} // namespace

TYPED_TEST(Arrays, ContentAndOrder)
{
    Array<TypeParam> a;
    fillWithNumbers(a, 5001);
    EXPECT_EQ(a.count(), 5001);
    EXPECT_EQ(a.indexOf(element<TypeParam>(4999)), 4999);
    EXPECT_EQ(a.indexOf(element<TypeParam>(-1)), -1);
    a.reverse();
    EXPECT_EQ(a[0], element<TypeParam>(5000));
    EXPECT_EQ(a.indexOf(element<TypeParam>(1)), 4999);

    Array<TypeParam> b;
    EXPECT_FALSE(a == b);
    ASSERT_TRUE(b.assign(a));
    EXPECT_TRUE(a == b);
    b[5000] = element<TypeParam>(7);
    EXPECT_FALSE(a == b);

    // A range of the array itself, across a move of the buffer.
    const auto before = b.count();
    while (b.capacity() > b.count())
        ASSERT_TRUE(b.append(element<TypeParam>(1)));
    ASSERT_TRUE(b.appendRange(b.data() + 10, before - 10));
    EXPECT_EQ(b[b.count() - 1], element<TypeParam>(7));
    EXPECT_EQ(b[b.count() - before + 10], b[10]);

    // New elements are zero whatever was there, with and without a new buffer.
    for (const std::int64_t count : {3, 20000, 0, 4}) {
        ASSERT_TRUE(b.resize(count));
        EXPECT_EQ(b.count(), count);
        for (const auto& value : b)
            ASSERT_EQ(value, TypeParam());
        if (count > 0)
            b[count - 1] = element<TypeParam>(9);
    }
    ASSERT_TRUE(b.clear());
    EXPECT_EQ(b.capacity(), 0);
    EXPECT_EQ(b.data(), nullptr);
    EXPECT_EQ(b.indexOf(TypeParam()), -1);
    EXPECT_TRUE(b == Array<TypeParam>());
    EXPECT_TRUE(b.appendRange(nullptr, 0));
}

TYPED_TEST(Arrays, RefusedSizesChangeNothing)
{
    Array<TypeParam> a;
    fillWithNumbers(a, 10);
    const auto* buffer = a.data();
    const std::int64_t largest = std::numeric_limits<std::int64_t>::max();
    for (const std::int64_t count : {std::int64_t(-1), std::int64_t(1) << 60, std::int64_t(1) << 62, largest}) {
        EXPECT_FALSE(a.resize(count));
        EXPECT_FALSE(a.appendRange(buffer, count));
        EXPECT_EQ(a.appendUninitialized(count), nullptr);
    }
    EXPECT_FALSE(a.reserve(largest / 8));
    EXPECT_FALSE(a.truncate(-1));
    EXPECT_FALSE(a.setExtents(3, 1));
    ASSERT_EQ(a.data(), buffer);
    ASSERT_EQ(a.count(), 10);
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(a[i], element<TypeParam>(i));

    // More than 31 bits of bytes and of elements, never touched.
    Array<TypeParam> large;
    ASSERT_TRUE(large.resize((std::int64_t(1) << 31) / static_cast<std::int64_t>(sizeof(TypeParam)) + 1));
    EXPECT_EQ(large[large.count() - 1], TypeParam());
}

TYPED_TEST(Arrays, ExportsHoldTheBuffer)
{
    Array<TypeParam> a;
    fillWithNumbers(a, 6);
    ASSERT_TRUE(a.setExtents(3, 2));
    a.exports().add();
    a.exports().add();
    a.exports().release();
    ASSERT_TRUE(a.isExported());
    const auto* buffer = a.data();
    EXPECT_FALSE(a.append(TypeParam()));
    EXPECT_FALSE(a.resize(6));
    EXPECT_FALSE(a.clear());
    EXPECT_FALSE(a.truncate(1));
    EXPECT_FALSE(a.appendRange(buffer, 1));
    EXPECT_FALSE(a.assign(Array<TypeParam>()));
    EXPECT_EQ(a.data(), buffer);
    EXPECT_EQ(a.count(), 6);
    EXPECT_EQ(a.extentY() * a.extentZ(), 6);
    a.exports().release();
    ASSERT_TRUE(a.append(TypeParam()));
    EXPECT_EQ(a.extentY(), 1);
}

TEST(FloatArrays, ComparisonIsExact)
{
    FloatArray a, b;
    ASSERT_TRUE(a.resize(3000));
    ASSERT_TRUE(b.resize(3000));
    b[2000] = -0.0f;
    EXPECT_TRUE(a == b);
    EXPECT_EQ(b.indexOf(0.0f), 0);
    a[2999] = b[2999] = std::numeric_limits<float>::quiet_NaN();
    EXPECT_FALSE(a == b);
    EXPECT_FALSE(a == a);
    EXPECT_FALSE(a.contains(a[2999]));
    a[2999] = 1.0f;
    b[2999] = std::nextafter(1.0f, 2.0f);
    EXPECT_FALSE(a == b);
}
