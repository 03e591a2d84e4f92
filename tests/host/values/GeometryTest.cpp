#include "host/core/Transform.h"
#include "host/geom/Rect2d.h"
#include "host/geom/Rect3d.h"

#include <cstring>
#include <limits>
#include <random>

using namespace core;

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

template <typename M>
M randomMatrix(std::mt19937& random)
{
    std::uniform_real_distribution<double> uniform(-10.0, 10.0);
    M m;
    for (std::size_t r = 0; r < M::Size; ++r)
        for (std::size_t c = 0; c < M::Size; ++c)
            m[r][c] = uniform(random);
    return m;
}

/// By Laplace expansion in extended precision, unlike the code under test.
template <std::size_t N, typename M>
long double minorDeterminant(const M& m, std::size_t row, unsigned columns)
{
    if (row == N)
        return 1.0L;
    long double sum = 0.0L, sign = 1.0L;
    for (std::size_t c = 0; c < N; ++c)
        if (columns & (1u << c)) {
            sum += sign * m[row][c] * minorDeterminant<N>(m, row + 1, columns & ~(1u << c));
            sign = -sign;
        }
    return sum;
}

template <typename M>
void checkInverses(unsigned seed)
{
    std::mt19937 random(seed);
    for (int round = 0; round < 500; ++round) {
        const M m = randomMatrix<M>(random);
        const auto expected = static_cast<double>(minorDeterminant<M::Size>(m, 0, (1u << M::Size) - 1));
        EXPECT_NEAR(m.determinant(), expected, 1e-12 * std::pow(30.0, M::Size));
        const auto inverse = m.inverse();
        ASSERT_TRUE(inverse);
        const M product = m * *inverse;
        for (std::size_t r = 0; r < M::Size; ++r)
            for (std::size_t c = 0; c < M::Size; ++c)
                EXPECT_NEAR(product[r][c], r == c ? 1.0 : 0.0, 1e-9);
    }
}

} // namespace

TEST(Vectors, Arithmetic)
{
    EXPECT_EQ(dot(vec2(1, 2), vec2(3, 4)), 11.0);
    EXPECT_EQ(dot(vec4(1, 2, 3, 4), vec4(5, 6, 7, 8)), 70.0);
    EXPECT_EQ(cross(vec2(1, 0), vec2(0, 1)), vec3(0, 0, 1));
    EXPECT_EQ(cross(vec3(1, 2, 3), vec3(-4, 5, 7)), vec3(2 * 7 - 3 * 5, 3 * -4 - 1 * 7, 1 * 5 - 2 * -4));
    EXPECT_EQ(-(vec3(1, 2, 3) + vec3(1, 1, 1)) * 2.0 - vec3(0, 0, 1), vec3(-4, -6, -9));
    EXPECT_EQ(vec3(1, 2, 3) / 3.0, vec3(1 * (1.0 / 3.0), 2 * (1.0 / 3.0), 3 * (1.0 / 3.0)));
    vec4 v(2, 4, 4, 0);
    EXPECT_EQ(v.length(), 6.0);
    EXPECT_EQ(&v.normalize(), &v);
    EXPECT_DOUBLE_EQ(v.lengthSquared(), 1.0);
    v[3] = 5.0;
    EXPECT_EQ(v.w, 5.0);
    EXPECT_TRUE(std::isnan(vec2().normalize().x));
    EXPECT_FALSE(vec2(NaN, 0) == vec2(NaN, 0));
    EXPECT_EQ(vec2(-0.0, 0), vec2(0.0, 0));
}

TEST(Vectors, TextForms)
{
    EXPECT_EQ(vec2(1, 2.5).toText(), "1.000000 , 2.500000");
    EXPECT_EQ(vec3(-1, 0, 1e-7).toText(), "-1.000000 , 0.000000 , 0.000000");
    EXPECT_EQ(vec4(1, 2, 3, 4).toText(), "1.000 , 2.000 , 3.000 , 4.000");
    EXPECT_EQ(vec3(NaN, Infinity, -Infinity).toText(), "nan , inf , -inf");
    EXPECT_EQ(vec2().normalize().toText(), "nan , nan");
    EXPECT_EQ(mat3(vec3(1, 0, 0), vec3(0, 1, -0.00001), vec3(2, 3, 4)).toText(),
              "|1.0000||0.0000||0.0000|\n|0.0000||1.0000||-0.0000|\n|2.0000||3.0000||4.0000|\n");
    // The longest numbers there are: 309 digits before the point, twice 16 of them.
    const std::string longest = mat4(-std::numeric_limits<double>::max()).toText();
    EXPECT_EQ(longest.size(), 16u * (1 + 309 + 5 + 2) + 4);
    EXPECT_EQ(longest.substr(0, 18), "|-1797693134862315");
}

TEST(Matrices, AlgebraAndInverse)
{
    const mat3 m(vec3(1, 2, 3), vec3(4, 5, 6), vec3(7, 8, 10));
    EXPECT_EQ(m * vec3(1, 1, 1), vec3(6, 15, 25));
    EXPECT_EQ(m * m, mat3(vec3(30, 36, 45), vec3(66, 81, 102), vec3(109, 134, 169)));
    EXPECT_EQ(m.transposed()[0], vec3(1, 4, 7));
    EXPECT_EQ((m + m - m * 2.0), mat3());
    EXPECT_EQ((mat3(1.0) / 0.0)[2].z, Infinity);
    EXPECT_EQ(mat4(2.0)[3], vec4(2, 2, 2, 2));
    EXPECT_EQ(mat4::identity() * mat4(3.0), mat4(3.0));

    EXPECT_FALSE(mat3(2.0).isInvertible());
    EXPECT_FALSE(mat4(vec4(1, 2, 3, 4), vec4(5, 6, 7, 8), vec4(1, 2, 3, 4), vec4(0, 0, 0, 1)).inverse());
    checkInverses<mat3>(1);
    checkInverses<mat4>(2);
    // A zero in the pivot's place, and an affine matrix whose inverse must be affine to the last bit.
    const mat4 affine(vec4(0, 25, 0, 431000.5), vec4(-12.5, 1, 0, 6.7e6), vec4(0, 0, 4, -20), vec4(0, 0, 0, 1));
    EXPECT_DOUBLE_EQ(affine.determinant(), 25 * 12.5 * 4);
    EXPECT_EQ((*affine.inverse())[3], vec4(0, 0, 0, 1));
}

TEST(Transforms, HomogeneousRule)
{
    const mat3 m(vec3(1, 2, 3), vec3(4, 5, 6), vec3(0, 1, 1));
    EXPECT_EQ(transform(m, vec2(1, 1)), vec2(6.0 / 2.0, 15.0 / 2.0));
    EXPECT_EQ(transformTransposed(m, vec2(1, 1)), vec2(5.0 / 10.0, 8.0 / 10.0));
    // On the vanishing plane nothing is tested.
    EXPECT_EQ(transform(m, vec2(5, -1)).x, Infinity);

    std::mt19937 random(3);
    for (const bool affine : {false, true}) {
        mat4 matrix = randomMatrix<mat4>(random);
        if (affine)
            matrix[3] = vec4(0, 0, 0, 1);
        std::uniform_real_distribution<double> uniform(-1e4, 1e4);
        std::vector<vec3> points;
        for (int i = 0; i < 1003; ++i)
            points.emplace_back(uniform(random), uniform(random), uniform(random));
        points[17].x = Infinity;
        points[18].y = NaN;
        points.back() = vec3(-0.0, 1e308, 0.0);
        std::vector<vec3> many(points.size());
        transformPoints(matrix, points.data(), many.data(), points.size());
        for (std::size_t i = 0; i < points.size(); ++i) {
            const vec4 h = matrix * vec4(points[i].x, points[i].y, points[i].z, 1.0);
            const vec3 one = transform(matrix, points[i]);
            for (int c = 0; c < 3; ++c) {
                const double expected = h[c] / h.w;
                EXPECT_TRUE(one[c] == expected || (std::isnan(one[c]) && std::isnan(expected))) << i;
                EXPECT_TRUE(many[i][c] == expected || (std::isnan(many[i][c]) && std::isnan(expected))) << i;
            }
        }
        transformPoints(matrix, points.data(), points.data(), points.size());
        EXPECT_EQ(std::memcmp(points.data(), many.data(), points.size() * sizeof(vec3)), 0);
        const vec3 p(1, 2, 3);
        EXPECT_EQ(transformTransposed(matrix, p), transform(matrix.transposed(), p));
    }
}

TEST(Rectangles, PlaneAndSpace)
{
    using geom::Rect2d;
    using geom::Rect3d;
    const Rect2d a(0, 0, 10, 5);
    EXPECT_TRUE(a.intersects({10, 5, 20, 20}));
    EXPECT_TRUE(a.intersection({10, 5, 20, 20}).isNull());
    EXPECT_FALSE(a.intersects({10.001, 0, 20, 5}));
    EXPECT_FALSE(a.intersection({11, 0, 20, 5}).isValid());
    EXPECT_EQ(a.intersection({11, 1, 20, 4}), Rect2d(11, 1, 10, 4));
    EXPECT_EQ(a.center(), vec2(5, 2.5));
    Rect2d b(vec2(1, 2), vec2(3, 4));
    b.setBottomLeft({0, 8});
    b.setTopRight({6, 1});
    EXPECT_EQ(b, Rect2d(0, 1, 6, 8));
    b.setWidth(2);
    b.setHeight(-1);
    EXPECT_EQ(b, Rect2d(0, 1, 2, 0));
    EXPECT_FALSE(b.isValid());
    EXPECT_EQ(Rect2d(1, 2, 3, 4).toText(),
              "------------- HVRect2D dump<br>Top Left: 1.000000 , 2.000000<br>Bottom Right: "
              "3.000000 , 4.000000<br>------------- END HVRect2D dump");

    Rect3d box(vec3(0, 1, 2), vec3(4, 6, 8));
    EXPECT_EQ(box, Rect3d(0, 1, 2, 4, 6, 8));
    EXPECT_EQ(vec3(box.width(), box.height(), box.depth()), vec3(4, 5, 6));
    EXPECT_TRUE(box.intersects({4, 6, 8, 9, 9, 9}));
    EXPECT_FALSE(box.intersects({0, 1, 8.5, 4, 6, 9}));
    box.setDepth(-1);
    EXPECT_EQ(box.back, 1.0);
    EXPECT_FALSE(box.isValid());
    EXPECT_EQ(Rect3d().toText(),
              "------------- HVRect3D dump<br>Top Left Front: 0.000000 , 0.000000 , 0.000000<br>Bottom "
              "Right Back: 0.000000 , 0.000000 , 0.000000<br>------------- END HVRect3D dump");
}
