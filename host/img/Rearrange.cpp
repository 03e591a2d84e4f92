#include "host/img/Rearrange.h"

#include <algorithm>
#include <cstring>

namespace img {

namespace {

/// A tile is 64 x 64 pixels: 16 KiB, half of the first-level cache.
constexpr std::size_t Tile = 64;

typedef float Four __attribute__((vector_size(16)));

/// 4 x 4 pixels; the strides are the lengths of the rows.
[[gnu::always_inline]] inline void transposeFour(const float* source, std::size_t sourceStride, float* target,
                                                 std::size_t targetStride)
{
    Four in[4];
    for (std::size_t r = 0; r < 4; ++r)
        std::memcpy(&in[r], source + r * sourceStride, sizeof(Four));
    const Four a = __builtin_shufflevector(in[0], in[1], 0, 4, 1, 5);
    const Four b = __builtin_shufflevector(in[0], in[1], 2, 6, 3, 7);
    const Four c = __builtin_shufflevector(in[2], in[3], 0, 4, 1, 5);
    const Four d = __builtin_shufflevector(in[2], in[3], 2, 6, 3, 7);
    const Four out[4] = {__builtin_shufflevector(a, c, 0, 1, 4, 5), __builtin_shufflevector(a, c, 2, 3, 6, 7),
                         __builtin_shufflevector(b, d, 0, 1, 4, 5), __builtin_shufflevector(b, d, 2, 3, 6, 7)};
    for (std::size_t r = 0; r < 4; ++r)
        std::memcpy(target + r * targetStride, &out[r], sizeof(Four));
}

/// Pixels in a cache line.
constexpr std::size_t CacheLine = 16;

/// Pixels ahead that a strided read asks for: each lies in a cache line of its own, often in a page of its own, where
/// the processor does not look ahead by itself. Measured; writes gain nothing from it.
constexpr std::size_t Ahead = 8;

} // namespace

void transpose(const float* source, float* target, std::size_t width, std::size_t height)
{
    transpose(source, width, target, height, width, height);
}

void transpose(const float* source, std::size_t sourceStride, float* target, std::size_t targetStride,
               std::size_t width, std::size_t height)
{
    // A tile is turned in a buffer of its own and leaves it in whole cache lines: rows whose distance is a power of two
    // share few places in the cache and would push each other out before a line is full.
    alignas(64) float tile[Tile][Tile];
    for (std::size_t x = 0; x < width; x += Tile) {
        const std::size_t columns = std::min(Tile, width - x);
        for (std::size_t y = 0; y < height; y += Tile) {
            const std::size_t rows = std::min(Tile, height - y);
            const float* corner = source + y * sourceStride + x;
            if (rows == Tile && columns == Tile) {
                for (std::size_t r = 0; r < Tile && y + Tile + r < height; ++r)
                    for (std::size_t c = 0; c < Tile; c += CacheLine)
                        __builtin_prefetch(corner + (Tile + r) * sourceStride + c);
                for (std::size_t r = 0; r < Tile; r += 4)
                    for (std::size_t c = 0; c < Tile; c += 4)
                        transposeFour(corner + r * sourceStride + c, sourceStride, &tile[c][r], Tile);
            } else {
                for (std::size_t r = 0; r < rows; ++r)
                    for (std::size_t c = 0; c < columns; ++c)
                        tile[c][r] = corner[r * sourceStride + c];
            }
            for (std::size_t c = 0; c < columns; ++c)
                std::copy_n(tile[c], rows, target + (x + c) * targetStride + y);
        }
    }
}

void gather(const float* source, std::size_t stride, float* target, std::size_t count)
{
    const std::size_t safe = count > Ahead ? count - Ahead : 0;
    std::size_t i = 0;
    for (; i < safe; ++i) {
        __builtin_prefetch(source + (i + Ahead) * stride);
        target[i] = source[i * stride];
    }
    for (; i < count; ++i)
        target[i] = source[i * stride];
}

void scatter(const float* source, float* target, std::size_t stride, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        target[i * stride] = source[i];
}

} // namespace img
