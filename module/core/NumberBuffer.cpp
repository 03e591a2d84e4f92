#include "module/core/NumberBuffer.h"

#include "host/img/Rearrange.h"

#include <QtEndian>
#include <qfloat16.h>

#include <array>
#include <bit>
#include <cstring>
#include <type_traits>
#include <utility>

namespace python {

namespace {

/// Of any alignment.
template <typename Item, bool Swapped>
Item load(const char* from)
{
    using Bits = std::conditional_t<
        sizeof(Item) == 1, quint8,
        std::conditional_t<sizeof(Item) == 2, quint16, std::conditional_t<sizeof(Item) == 4, quint32, quint64>>>;
    Bits bits = 0;
    std::memcpy(&bits, from, sizeof bits);
    if constexpr (Swapped)
        bits = qbswap(bits);
    return std::bit_cast<Item>(bits);
}

template <typename Target, typename Item>
Target converted(Item value)
{
    if constexpr (std::is_same_v<Item, qfloat16>)
        return static_cast<float>(value);
    else if constexpr (std::is_same_v<Target, float> && std::is_integral_v<Item> && sizeof(Item) == 8)
        return static_cast<float>(static_cast<double>(value)); // as an int object is converted
    else
        return static_cast<Target>(value);
}

template <typename Target>
using RowReader = bool (*)(const char* source, std::ptrdiff_t stride, Target* target, std::size_t count);

/// False when a value is out of the target's range. The loop has no way out, so that it becomes vector code.
template <typename Item, bool Swapped, typename Target>
bool readRow(const char* source, std::ptrdiff_t stride, Target* target, std::size_t count)
{
    // So does a step that the compiler knows. Swapping takes as long as counting does, hence the pragma.
    const auto loop = [=](auto step) {
        bool fits = true;
#pragma GCC unroll 4
        for (std::size_t i = 0; i < count; ++i) {
            const auto value = load<Item, Swapped>(source + static_cast<std::ptrdiff_t>(i) * step);
            if constexpr (std::is_integral_v<Target>)
                fits &= std::in_range<Target>(value);
            target[i] = converted<Target>(value);
        }
        return fits;
    };
    constexpr std::ptrdiff_t Size = sizeof(Item);
    if (stride == Size)
        return loop(std::integral_constant<std::ptrdiff_t, Size>());
    if (stride == -Size)
        return loop(std::integral_constant<std::ptrdiff_t, -Size>());
    return loop(stride);
}

/// For the one of `Items` that has this size.
template <typename Target, typename... Items>
RowReader<Target> readerOfSize(Py_ssize_t size, bool isSwapped)
{
    RowReader<Target> reader = nullptr;
    const auto consider = [&]<typename Item>(std::type_identity<Item>) {
        if (size == Py_ssize_t(sizeof(Item)))
            reader = isSwapped ? readRow<Item, (sizeof(Item) > 1), Target> : readRow<Item, false, Target>;
    };
    (consider(std::type_identity<Items>()), ...);
    return reader;
}

} // namespace

NumberBuffer::NumberBuffer(PyObject* source)
{
    if (PyObject_GetBuffer(source, &m_view, PyBUF_RECORDS_RO) < 0) {
        m_view = Py_buffer{};
        return;
    }
    describe(format());
    for (int axis = 0; axis < m_view.ndim; ++axis)
        m_count *= m_view.shape[axis];
}

NumberBuffer::~NumberBuffer()
{
    PyBuffer_Release(&m_view);
}

void NumberBuffer::describe(const char* format)
{
    if (*format && std::strchr("@=<>!", *format)) {
        const bool isBig = *format == '>' || *format == '!';
        const bool isLittle = *format == '<';
        m_isSwapped = std::endian::native == std::endian::little ? isBig : isLittle;
        ++format;
    }
    // The width is the view's item size: the same letter means different widths in the native and standard notations.
    const Py_ssize_t size = m_view.itemsize;
    if (format[0] == '\0' || format[1] != '\0')
        return;
    const bool isIntegerSize = size == 1 || size == 2 || size == 4 || size == 8;
    if (std::strchr("bhilqn", *format) && isIntegerSize)
        m_kind = Kind::Signed;
    else if (std::strchr("?BHILQN", *format) && isIntegerSize)
        m_kind = Kind::Unsigned;
    else if (std::strchr("efd", *format) && (size == 2 || size == 4 || size == 8))
        m_kind = Kind::Floating;
}

bool NumberBuffer::overlaps(const void* memory, std::int64_t bytes) const
{
    if (m_count == 0)
        return false;
    const char* first = static_cast<const char*>(m_view.buf);
    const char* end = first + m_view.itemsize;
    for (int axis = 0; axis < m_view.ndim; ++axis) {
        const std::ptrdiff_t reach = (m_view.shape[axis] - 1) * m_view.strides[axis];
        (reach < 0 ? first : end) += reach;
    }
    return first < static_cast<const char*>(memory) + bytes && static_cast<const char*>(memory) < end;
}

template <typename Target>
bool NumberBuffer::isNative() const
{
    return m_kind == (std::is_integral_v<Target> ? Kind::Signed : Kind::Floating) &&
           m_view.itemsize == sizeof(Target) && !m_isSwapped;
}

template <typename Target>
bool NumberBuffer::isPlain() const
{
    return isNative<Target>() && PyBuffer_IsContiguous(&m_view, 'C');
}

template <typename Target>
auto NumberBuffer::rowReader() const
{
    const Py_ssize_t size = m_view.itemsize;
    if (m_kind == Kind::Signed)
        return readerOfSize<Target, std::int8_t, std::int16_t, std::int32_t, std::int64_t>(size, m_isSwapped);
    if (m_kind == Kind::Unsigned)
        return readerOfSize<Target, std::uint8_t, std::uint16_t, std::uint32_t, std::uint64_t>(size, m_isSwapped);
    if constexpr (std::is_floating_point_v<Target>)
        return readerOfSize<Target, qfloat16, float, double>(size, m_isSwapped);
    else
        return RowReader<Target>();
}

template <typename Target>
bool NumberBuffer::read(Target* target) const
{
    if (m_count == 0)
        return true;
    const char* row = static_cast<const char*>(m_view.buf);
    if (isPlain<Target>()) {
        std::memmove(target, row, static_cast<std::size_t>(m_count) * sizeof(Target));
        return true;
    }
    if constexpr (std::is_same_v<Target, float>)
        if (m_view.ndim == 2 && isNative<float>() && PyBuffer_IsContiguous(&m_view, 'F')) {
            img::transpose(static_cast<const float*>(m_view.buf), target, static_cast<std::size_t>(m_view.shape[0]),
                           static_cast<std::size_t>(m_view.shape[1]));
            return true;
        }
    const RowReader<Target> readRow = rowReader<Target>();
    if (PyBuffer_IsContiguous(&m_view, 'C'))
        return readRow(row, m_view.itemsize, target, static_cast<std::size_t>(m_count));
    // One row of the last index after the other; `index` counts the others like an odometer.
    const int last = m_view.ndim - 1;
    const Py_ssize_t rowCount = m_view.shape[last];
    std::array<Py_ssize_t, PyBUF_MAX_NDIM> index{};
    bool fits = true;
    for (std::int64_t done = 0; done < m_count; done += rowCount) {
        fits &= readRow(row, m_view.strides[last], target + done, static_cast<std::size_t>(rowCount));
        for (int axis = last - 1; axis >= 0; --axis) {
            row += m_view.strides[axis];
            if (++index[static_cast<std::size_t>(axis)] < m_view.shape[axis])
                break;
            row -= m_view.strides[axis] * m_view.shape[axis];
            index[static_cast<std::size_t>(axis)] = 0;
        }
    }
    return fits;
}

template bool NumberBuffer::read(std::int32_t* target) const;
template bool NumberBuffer::read(float* target) const;
template bool NumberBuffer::read(double* target) const;
template bool NumberBuffer::isPlain<float>() const;

} // namespace python
