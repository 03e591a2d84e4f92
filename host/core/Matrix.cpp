#include "host/core/Matrix.h"

#include <cmath>
#include <utility>

namespace core {

namespace {

/// P * M = L * U; the lower factor (unit diagonal left out) and the upper one share `factors`. Row r of the result is
/// row `order[r]` of M. `determinant` is exactly zero when a column has no pivot; the factors are then unfinished.
template <typename Row>
struct LuDecomposition
{
    explicit LuDecomposition(const Matrix<Row>& matrix) : factors(matrix)
    {
        constexpr std::size_t n = Row::Size;
        for (std::size_t r = 0; r < n; ++r)
            order[r] = r;
        for (std::size_t k = 0; k < n; ++k) {
            std::size_t pivot = k;
            for (std::size_t r = k + 1; r < n; ++r)
                if (std::fabs(factors[r][k]) > std::fabs(factors[pivot][k]))
                    pivot = r;
            if (pivot != k) {
                std::swap(factors[k], factors[pivot]);
                std::swap(order[k], order[pivot]);
                determinant = -determinant;
            }
            determinant *= factors[k][k];
            if (factors[k][k] == 0.0) {
                determinant = 0.0;
                return;
            }
            for (std::size_t r = k + 1; r < n; ++r) {
                const double factor = factors[r][k] / factors[k][k];
                factors[r][k] = factor;
                for (std::size_t c = k + 1; c < n; ++c)
                    factors[r][c] -= factor * factors[k][c];
            }
        }
    }

    Matrix<Row> factors;
    std::array<std::size_t, Row::Size> order{};
    double determinant = 1.0;
};

} // namespace

template <typename Row>
double Matrix<Row>::determinant() const
{
    return LuDecomposition<Row>(*this).determinant;
}

template <typename Row>
std::optional<Matrix<Row>> Matrix<Row>::inverse() const
{
    const LuDecomposition<Row> lu(*this);
    if (lu.determinant == 0.0)
        return std::nullopt;
    // All columns of the identity are solved at once: each row of `result` is one unknown of every column.
    Matrix result;
    for (std::size_t r = 0; r < Size; ++r) {
        result[r][lu.order[r]] = 1.0;
        for (std::size_t k = 0; k < r; ++k)
            result[r] -= lu.factors[r][k] * result[k];
    }
    for (std::size_t r = Size; r-- > 0;) {
        for (std::size_t k = r + 1; k < Size; ++k)
            result[r] -= lu.factors[r][k] * result[k];
        for (std::size_t c = 0; c < Size; ++c)
            result[r][c] /= lu.factors[r][r];
    }
    return result;
}

template <typename Row>
std::string Matrix<Row>::toText() const
{
    std::string text;
    for (const Row& row : m_rows) {
        for (std::size_t c = 0; c < Size; ++c) {
            text += '|';
            appendFixed(text, row[c], 4);
            text += '|';
        }
        text += '\n';
    }
    return text;
}

template class Matrix<vec3>;
template class Matrix<vec4>;

} // namespace core
