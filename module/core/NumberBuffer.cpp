#include "module/core/NumberBuffer.h"

#include <QtEndian>

#include <bit>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace python {

namespace {

/// IEEE half precision; the interpreter knows how to unpack it.
struct Half
{
    unsigned char bytes[2];
};

/// Of any alignment.
template <typename Source>
Source load(const unsigned char* from, bool swapped)
{
    using Bits = std::conditional_t<
        sizeof(Source) == 1, quint8,
        std::conditional_t<sizeof(Source) == 2, quint16, std::conditional_t<sizeof(Source) == 4, quint32, quint64>>>;
    Bits bits = 0;
    std::memcpy(&bits, from, sizeof bits);
    if constexpr (sizeof(Source) > 1)
        if (swapped)
            bits = qbswap(bits);
    return std::bit_cast<Source>(bits);
}

template <typename Target, typename Source>
Target converted(Source value)
{
    if constexpr (std::is_same_v<Source, Half>)
        return static_cast<Target>(
            PyFloat_Unpack2(reinterpret_cast<const char*>(value.bytes), std::endian::native == std::endian::little));
    else if constexpr (std::is_same_v<Target, float> && std::is_integral_v<Source>)
        return static_cast<float>(static_cast<double>(value)); // as an int object is converted
    else
        return static_cast<Target>(value);
}

/// False when a value is out of the target's range. The loop has no way out, so that it becomes vector code.
template <typename Source, typename Target>
bool convert(const unsigned char* from, std::size_t count, bool swapped, Target* target)
{
    if (!swapped && std::is_same_v<Source, Target>) {
        if (count > 0)
            std::memcpy(target, from, count * sizeof(Target));
        return true;
    }
    const auto loop = [=](bool swap) {
        bool fits = true;
        for (std::size_t i = 0; i < count; ++i) {
            const auto value = load<Source>(from + i * sizeof(Source), swap);
            if constexpr (std::is_integral_v<Target> && std::is_integral_v<Source>)
                fits &= std::in_range<Target>(value);
            target[i] = converted<Target>(value);
        }
        return fits;
    };
    return swapped ? loop(true) : loop(false);
}

} // namespace

NumberBuffer::NumberBuffer(PyObject* source)
{
    if (!PyObject_CheckBuffer(source))
        return;
    if (PyObject_GetBuffer(source, &m_view, PyBUF_FULL_RO) < 0) {
        // Some items have no description in the protocol (dates of numpy): they are read one by one.
        PyErr_Clear();
        m_view = Py_buffer{};
        return;
    }
    describe(m_view.format ? m_view.format : "B");
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
    if (format[0] == '\0' || format[1] != '\0' || m_view.ndim < 1)
        return;
    const bool isIntegerSize = size == 1 || size == 2 || size == 4 || size == 8;
    if (std::strchr("bhilqn", *format) && isIntegerSize)
        m_kind = Kind::Signed;
    else if (std::strchr("?BHILQN", *format) && isIntegerSize)
        m_kind = Kind::Unsigned;
    else if (std::strchr("efd", *format) && (size == 2 || size == 4 || size == 8))
        m_kind = Kind::Floating;
}

template <typename Target>
bool NumberBuffer::readAs(Target* target) const
{
    const auto* from = static_cast<const unsigned char*>(m_view.buf);
    std::unique_ptr<unsigned char[]> gathered;
    if (!PyBuffer_IsContiguous(&m_view, 'C')) {
        gathered.reset(new (std::nothrow) unsigned char[static_cast<std::size_t>(m_view.len)]);
        if (!gathered) {
            PyErr_NoMemory();
            return false;
        }
        if (PyBuffer_ToContiguous(gathered.get(), &m_view, m_view.len, 'C') < 0)
            return false;
        from = gathered.get();
    }
    const auto as = [&]<typename Source>(Source) {
        return convert<Source>(from, static_cast<std::size_t>(count()), m_isSwapped, target);
    };
    bool fits = false;
    if (m_kind == Kind::Signed)
        fits = m_view.itemsize == 1   ? as(std::int8_t())
               : m_view.itemsize == 2 ? as(std::int16_t())
               : m_view.itemsize == 4 ? as(std::int32_t())
                                      : as(std::int64_t());
    else if (m_kind == Kind::Unsigned)
        fits = m_view.itemsize == 1   ? as(std::uint8_t())
               : m_view.itemsize == 2 ? as(std::uint16_t())
               : m_view.itemsize == 4 ? as(std::uint32_t())
                                      : as(std::uint64_t());
    else if constexpr (std::is_floating_point_v<Target>)
        fits = m_view.itemsize == 2 ? as(Half()) : m_view.itemsize == 4 ? as(float()) : as(double());
    if (!fits)
        PyErr_SetString(PyExc_OverflowError, "IntArray, value out of the range of a 32-bit integer");
    return fits;
}

bool NumberBuffer::read(std::int32_t* target) const
{
    return readAs(target);
}

bool NumberBuffer::read(float* target) const
{
    return readAs(target);
}

bool NumberBuffer::read(double* target) const
{
    return readAs(target);
}

} // namespace python
