#include "host/img/Rearrange.h"

#include <algorithm>

namespace img {

namespace {

/// A tile is 32 x 32 pixels: two full cache lines in every row, 4 KiB in all.
constexpr std::size_t Tile = 32;

/// Pixels ahead that a strided walk asks for: each one lies in a page and cache line of its own, where the processor
/// does not look ahead by itself.
constexpr std::size_t Ahead = 32;

} // namespace

void transpose(const float* source, float* target, std::size_t width, std::size_t height)
{
    // Whole lines go into the tile and whole lines come out: rows whose distance is a power of two share few places in
    // the cache and would push each other out otherwise. The extra column does the same for the tile itself.
    float tile[Tile][Tile + 1];
    for (std::size_t y = 0; y < height; y += Tile) {
        const std::size_t rows = std::min(Tile, height - y);
        for (std::size_t x = 0; x < width; x += Tile) {
            const std::size_t columns = std::min(Tile, width - x);
            for (std::size_t r = 0; r < rows; ++r)
                std::copy_n(source + (y + r) * width + x, columns, tile[r]);
            for (std::size_t c = 0; c < columns; ++c) {
                float* row = target + (x + c) * height + y;
                for (std::size_t r = 0; r < rows; ++r)
                    row[r] = tile[r][c];
            }
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
    const std::size_t safe = count > Ahead ? count - Ahead : 0;
    std::size_t i = 0;
    for (; i < safe; ++i) {
        __builtin_prefetch(target + (i + Ahead) * stride, 1);
        target[i * stride] = source[i];
    }
    for (; i < count; ++i)
        target[i * stride] = source[i];
}

} // namespace img
