#pragma once

#include "host/core/Vector.h"

#include <array>
#include <optional>

namespace core {

/// A square matrix of doubles stored row by row, so element (r, c) lies at r * Size + c. Row is the vector of one row
/// (and of a column: the size is Row::Size). Matrices act on column vectors: M * v.
template <typename Row>
class Matrix
{
public:
    static constexpr std::size_t Size = Row::Size;

    /// All elements zero.
    constexpr Matrix() = default;
    /// Every element, not only the diagonal, is `value`.
    constexpr explicit Matrix(double value)
    {
        for (Row& row : m_rows)
            for (std::size_t c = 0; c < Size; ++c)
                row[c] = value;
    }
    constexpr Matrix(const Row& row0, const Row& row1, const Row& row2) requires(Size == 3) : m_rows{row0, row1, row2}
    {}
    constexpr Matrix(const Row& row0, const Row& row1, const Row& row2, const Row& row3) requires(Size == 4)
        : m_rows{row0, row1, row2, row3}
    {}

    static constexpr Matrix identity()
    {
        Matrix result;
        for (std::size_t i = 0; i < Size; ++i)
            result[i][i] = 1.0;
        return result;
    }

    /// `row` must be below Size.
    constexpr const Row& operator[](std::size_t row) const { return m_rows[row]; }
    constexpr Row& operator[](std::size_t row) { return m_rows[row]; }

    constexpr Matrix& operator+=(const Matrix& other)
    {
        for (std::size_t r = 0; r < Size; ++r)
            m_rows[r] += other[r];
        return *this;
    }
    constexpr Matrix& operator-=(const Matrix& other)
    {
        for (std::size_t r = 0; r < Size; ++r)
            m_rows[r] -= other[r];
        return *this;
    }
    constexpr Matrix& operator*=(double factor)
    {
        for (Row& row : m_rows)
            row *= factor;
        return *this;
    }
    /// Multiplies every element by 1/divisor; a zero divisor gives infinities.
    constexpr Matrix& operator/=(double divisor) { return *this *= 1.0 / divisor; }

    friend constexpr Matrix operator+(Matrix a, const Matrix& b) { return a += b; }
    friend constexpr Matrix operator-(Matrix a, const Matrix& b) { return a -= b; }
    friend constexpr Matrix operator*(Matrix a, double factor) { return a *= factor; }
    friend constexpr Matrix operator*(double factor, Matrix a) { return a *= factor; }
    friend constexpr Matrix operator/(Matrix a, double divisor) { return a /= divisor; }
    friend constexpr Matrix operator*(const Matrix& a, const Matrix& b)
    {
        Matrix result;
        for (std::size_t r = 0; r < Size; ++r)
            for (std::size_t k = 0; k < Size; ++k)
                result[r] += a[r][k] * b[k];
        return result;
    }
    friend constexpr Row operator*(const Matrix& m, const Row& v)
    {
        Row result;
        for (std::size_t r = 0; r < Size; ++r)
            result[r] = dot(m[r], v);
        return result;
    }
    /// Exact comparison of all elements.
    friend constexpr bool operator==(const Matrix& a, const Matrix& b)
    {
        bool equal = true;
        for (std::size_t r = 0; r < Size; ++r)
            equal = equal && a[r] == b[r];
        return equal;
    }

    constexpr Matrix transposed() const
    {
        Matrix result;
        for (std::size_t r = 0; r < Size; ++r)
            for (std::size_t c = 0; c < Size; ++c)
                result[c][r] = m_rows[r][c];
        return result;
    }

    /// By LU decomposition of the full matrix with partial pivoting.
    double determinant() const;
    /// The determinant is not exactly zero; a nearly singular matrix is invertible.
    bool isInvertible() const { return determinant() != 0.0; }
    /// By the same decomposition. Empty when the determinant is exactly zero. The last row of an affine matrix
    /// (0 ... 0 1) comes back exactly, so the inverse is affine again.
    std::optional<Matrix> inverse() const;

    /// "|value|" with 4 decimals for each element, a line feed after each row.
    std::string toText() const;

private:
    std::array<Row, Size> m_rows{};
};

extern template class Matrix<vec3>;
extern template class Matrix<vec4>;

using mat3 = Matrix<vec3>;
using mat4 = Matrix<vec4>;

static_assert(sizeof(mat3) == 72 && sizeof(mat4) == 128);
static_assert(std::is_trivially_copyable_v<mat3> && std::is_trivially_copyable_v<mat4>);

} // namespace core
