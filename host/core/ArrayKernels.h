#pragma once

#include <cstddef>
#include <cstdint>

namespace core::kernels {

/// The long loops behind Array, apart because they are compiled with flags and instruction sets of their own.
/// Comparison is exact: a not-a-number equals nothing, -0 equals 0. Ranges of `count` elements; any thread.

bool equal(const std::int32_t* a, const std::int32_t* b, std::size_t count);
bool equal(const float* a, const float* b, std::size_t count);
bool equal(const double* a, const double* b, std::size_t count);

/// Position of the first element equal to `value`, `count` when there is none.
std::size_t find(const std::int32_t* values, std::size_t count, std::int32_t value);
std::size_t find(const float* values, std::size_t count, float value);
std::size_t find(const double* values, std::size_t count, double value);

} // namespace core::kernels
