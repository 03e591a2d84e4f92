#include "module/core/PixelSource.h"

#include "host/img/Rearrange.h"
#include "runtime/Errors.h"

#include <qfloat16.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace python {

namespace {

template <typename Item, bool Swapped>
Item load(const char* source)
{
    std::array<char, sizeof(Item)> bytes;
    std::memcpy(bytes.data(), source, sizeof(Item));
    if constexpr (Swapped)
        std::reverse(bytes.begin(), bytes.end());
    Item item;
    std::memcpy(static_cast<void*>(&item), bytes.data(), sizeof(Item));
    return item;
}

template <typename Item, bool Swapped>
void readRow(const char* source, std::ptrdiff_t stride, float* target, std::size_t count)
{
    // A step that the compiler knows makes vector code.
    const auto loop = [=](auto step) {
        for (std::size_t i = 0; i < count; ++i)
            target[i] = static_cast<float>(load<Item, Swapped>(source + static_cast<std::ptrdiff_t>(i) * step));
    };
    constexpr std::ptrdiff_t Size = sizeof(Item);
    if (stride == Size)
        loop(std::integral_constant<std::ptrdiff_t, Size>());
    else if (stride == -Size)
        loop(std::integral_constant<std::ptrdiff_t, -Size>());
    else
        loop(stride);
}

template <typename Item>
auto reader(bool swapped)
{
    return swapped ? readRow<Item, true> : readRow<Item, false>;
}

template <typename Item1, typename Item2, typename Item4, typename Item8>
auto integerReader(Py_ssize_t size, bool swapped)
{
    return size == 1   ? reader<Item1>(swapped)
           : size == 2 ? reader<Item2>(swapped)
           : size == 4 ? reader<Item4>(swapped)
           : size == 8 ? reader<Item8>(swapped)
                       : nullptr;
}

} // namespace

PixelSource::RowReader PixelSource::readerFor(const char* format, Py_ssize_t itemSize)
{
    bool swapped = false;
    if (std::strchr("@=<>!", *format)) {
        swapped = *format == '>' || *format == '!';
        ++format;
    }
    if (std::strlen(format) != 1)
        return nullptr;
    // The size of "l" depends on the prefix, so the item's size decides and the letter only tells the kind.
    if (std::strchr("bhilqn", *format))
        return integerReader<std::int8_t, std::int16_t, std::int32_t, std::int64_t>(itemSize, swapped);
    if (std::strchr("?BHILQN", *format))
        return integerReader<std::uint8_t, std::uint16_t, std::uint32_t, std::uint64_t>(itemSize, swapped);
    if (*format == 'e' && itemSize == sizeof(qfloat16))
        return reader<qfloat16>(swapped);
    if (*format == 'f' && itemSize == sizeof(float))
        return reader<float>(swapped);
    if (*format == 'd' && itemSize == sizeof(double))
        return reader<double>(swapped);
    return nullptr;
}

PixelSource::PixelSource(PyObject* object)
{
    if (PyObject_GetBuffer(object, &m_view, PyBUF_RECORDS_RO) < 0)
        raisePending();
    m_readRow = *format() ? readerFor(format(), m_view.itemsize) : nullptr;
    for (int axis = 0; axis < m_view.ndim; ++axis)
        m_count *= m_view.shape[axis];
}

PixelSource::~PixelSource()
{
    PyBuffer_Release(&m_view);
}

bool PixelSource::overlaps(const float* pixels, std::int64_t count) const
{
    if (m_count == 0)
        return false;
    const char* first = static_cast<const char*>(m_view.buf);
    const char* end = first + m_view.itemsize;
    for (int axis = 0; axis < m_view.ndim; ++axis) {
        const std::ptrdiff_t reach = (m_view.shape[axis] - 1) * m_view.strides[axis];
        (reach < 0 ? first : end) += reach;
    }
    return first < reinterpret_cast<const char*>(pixels + count) && reinterpret_cast<const char*>(pixels) < end;
}

bool PixelSource::isNativeFloat() const
{
    return m_readRow == &readRow<float, false>;
}

bool PixelSource::isPlain() const
{
    return isNativeFloat() && PyBuffer_IsContiguous(&m_view, 'C');
}

void PixelSource::read(float* target) const
{
    if (m_count == 0)
        return;
    if (isPlain()) {
        std::memmove(target, m_view.buf, static_cast<std::size_t>(m_count) * sizeof(float));
        return;
    }
    if (m_view.ndim == 2 && isNativeFloat() && PyBuffer_IsContiguous(&m_view, 'F')) {
        img::transpose(static_cast<const float*>(m_view.buf), target, static_cast<std::size_t>(m_view.shape[0]),
                       static_cast<std::size_t>(m_view.shape[1]));
        return;
    }
    // One row of the last index after the other; `index` counts the others like an odometer.
    const int last = m_view.ndim - 1;
    const Py_ssize_t rowCount = m_view.shape[last];
    std::array<Py_ssize_t, PyBUF_MAX_NDIM> index{};
    const char* row = static_cast<const char*>(m_view.buf);
    for (std::int64_t done = 0; done < m_count; done += rowCount) {
        m_readRow(row, m_view.strides[last], target + done, static_cast<std::size_t>(rowCount));
        for (int axis = last - 1; axis >= 0; --axis) {
            row += m_view.strides[axis];
            if (++index[static_cast<std::size_t>(axis)] < m_view.shape[axis])
                break;
            row -= m_view.strides[axis] * m_view.shape[axis];
            index[static_cast<std::size_t>(axis)] = 0;
        }
    }
}

} // namespace python
