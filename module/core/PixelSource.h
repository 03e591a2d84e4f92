#pragma once

#include <boost/python/detail/wrap_python.hpp>

#include <cstddef>
#include <cstdint>

namespace python {

/// The numbers in any object with the buffer protocol, read as 32-bit floats in the object's logical order (C order of
/// its indices), whatever their type, byte order and layout in memory: all integers up to 64 bits, bool and floats of
/// 16, 32 and 64 bits. Bytes are numbers from 0 to 255; nothing is ever reinterpreted.
///
/// Made and destroyed with the interpreter lock; the object stays as it is meanwhile. Only read() works without.
class PixelSource
{
public:
    /// Raises what the object raises when it does not hand its buffer out.
    explicit PixelSource(PyObject* object);
    ~PixelSource();
    PixelSource(const PixelSource&) = delete;
    PixelSource& operator=(const PixelSource&) = delete;

    /// 0 for a single number (a NumPy scalar).
    int dimensions() const { return m_view.ndim; }
    std::int64_t count() const { return m_count; }
    /// False for items that are no real numbers: complex ones, records, texts.
    bool isReadable() const { return m_readRow != nullptr; }
    /// The items' type in the notation of the struct module.
    const char* format() const { return m_view.format ? m_view.format : "B"; }
    /// True when the items lie, even in part, in this piece of memory.
    bool overlaps(const float* pixels, std::int64_t count) const;

    /// Writes count() floats. The target may only overlap the items when isPlain().
    void read(float* target) const;
    /// The items are 32-bit floats in the target's own order.
    bool isPlain() const;

private:
    using RowReader = void (*)(const char* source, std::ptrdiff_t stride, float* target, std::size_t count);

    static RowReader readerFor(const char* format, Py_ssize_t itemSize);
    bool isNativeFloat() const;

    Py_buffer m_view;
    RowReader m_readRow = nullptr;
    std::int64_t m_count = 1;
};

} // namespace python
