#pragma once

#include <cstddef>

namespace img {

/// Moves of pixels between different orders, the loops behind transpose() and the frames of a cube. Source and target
/// must not overlap; any thread.

/// Source: `height` rows of `width` pixels. Target: `width` rows of `height` pixels.
void transpose(const float* source, float* target, std::size_t width, std::size_t height);
/// The same with rows that lie further apart: `sourceStride` and `targetStride` pixels from one to the next.
void transpose(const float* source, std::size_t sourceStride, float* target, std::size_t targetStride,
               std::size_t width, std::size_t height);

/// target[i] = source[i * stride]
void gather(const float* source, std::size_t stride, float* target, std::size_t count);

/// target[i * stride] = source[i]
void scatter(const float* source, float* target, std::size_t stride, std::size_t count);

} // namespace img
