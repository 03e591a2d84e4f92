#include "host/core/Array.h"

#include "host/core/ArrayKernels.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <limits>
#include <utility>

namespace core {

namespace {

template <typename T>
constexpr std::int64_t MaximumCount = std::numeric_limits<std::ptrdiff_t>::max() / static_cast<std::int64_t>(sizeof(T));

template <typename T>
std::size_t byteCount(std::int64_t count)
{
    return static_cast<std::size_t>(count) * sizeof(T);
}

} // namespace

// The buffer comes from malloc: growing large blocks with realloc moves pages, not bytes.
template <typename T>
Array<T>::~Array()
{
    std::free(static_cast<void*>(m_data));
}

template <typename T>
bool Array<T>::setExtents(std::int64_t y, std::int64_t z)
{
    if (y < 1 || z < 1 || m_count % y != 0 || m_count / y % z != 0)
        return false;
    m_extentY = y;
    m_extentZ = z;
    return true;
}

template <typename T>
bool Array<T>::resize(std::int64_t count)
{
    if (isExported() || count < 0 || count > MaximumCount<T>)
        return false;
    if (count > m_capacity || count < m_capacity / 2) {
        // calloc: the system's pages are zero already. At least one element, so that null always means failure.
        auto* fresh =
            static_cast<T*>(std::calloc(static_cast<std::size_t>(std::max<std::int64_t>(count, 1)), sizeof(T)));
        if (!fresh)
            return false;
        std::free(static_cast<void*>(m_data));
        m_data = fresh;
        m_capacity = std::max<std::int64_t>(count, 1);
    } else if (count > 0) {
        std::memset(static_cast<void*>(m_data), 0, byteCount<T>(count));
    }
    m_count = count;
    m_extentY = m_extentZ = 1;
    return true;
}

template <typename T>
bool Array<T>::reserve(std::int64_t capacity)
{
    if (capacity <= m_capacity)
        return true;
    if (isExported() || capacity > MaximumCount<T>)
        return false;
    void* grown = std::realloc(static_cast<void*>(m_data), byteCount<T>(capacity));
    if (!grown)
        return false;
    m_data = static_cast<T*>(grown);
    m_capacity = capacity;
    return true;
}

template <typename T>
bool Array<T>::grow(std::int64_t additional)
{
    if (isExported() || additional < 0 || additional > MaximumCount<T> - m_count)
        return false;
    const std::int64_t needed = m_count + additional;
    if (needed <= m_capacity)
        return true;
    constexpr std::int64_t FirstCapacity = 16;
    const std::int64_t generous = std::max(m_capacity + m_capacity / 2, FirstCapacity);
    // Near the end of memory the exact size may still be had.
    return (generous > needed && generous <= MaximumCount<T> && reserve(generous)) || reserve(needed);
}

template <typename T>
bool Array<T>::truncate(std::int64_t count)
{
    if (isExported() || count < 0)
        return false;
    if (count < m_count) {
        m_count = count;
        m_extentY = m_extentZ = 1;
    }
    return true;
}

template <typename T>
bool Array<T>::clear()
{
    if (isExported())
        return false;
    std::free(static_cast<void*>(m_data));
    m_data = nullptr;
    m_count = m_capacity = 0;
    m_extentY = m_extentZ = 1;
    return true;
}

template <typename T>
bool Array<T>::assign(const Array& other)
{
    if (this == &other)
        return true;
    if (isExported() || !reserve(other.m_count))
        return false;
    if (other.m_count > 0)
        std::memcpy(static_cast<void*>(m_data), other.m_data, byteCount<T>(other.m_count));
    m_count = other.m_count;
    m_extentY = other.m_extentY;
    m_extentZ = other.m_extentZ;
    return true;
}

template <typename T>
bool Array<T>::takeOver(Array& other)
{
    if (isExported() || other.isExported())
        return false;
    std::swap(m_data, other.m_data);
    std::swap(m_count, other.m_count);
    std::swap(m_capacity, other.m_capacity);
    std::swap(m_extentY, other.m_extentY);
    std::swap(m_extentZ, other.m_extentZ);
    return true;
}

template <typename T>
bool Array<T>::appendSlowly(T value)
{
    return grow(1) && append(value);
}

template <typename T>
bool Array<T>::appendRange(const T* values, std::int64_t count)
{
    // Growing may move the buffer from under a range of our own.
    const std::less_equal<const T*> notBehind;
    const bool own = m_data && notBehind(m_data, values) && notBehind(values, m_data + m_count);
    const std::ptrdiff_t offset = own ? values - m_data : 0;
    T* target = appendUninitialized(count);
    if (!target)
        return false;
    if (count > 0)
        std::memmove(static_cast<void*>(target), own ? m_data + offset : values, byteCount<T>(count));
    return true;
}

template <typename T>
T* Array<T>::appendUninitialized(std::int64_t count)
{
    // An empty array has no buffer yet; adding nothing to it is no failure.
    if (!grow(count == 0 && !m_data ? 1 : count))
        return nullptr;
    T* first = m_data + m_count;
    m_count += count;
    m_extentY = m_extentZ = 1;
    return first;
}

template <typename T>
void Array<T>::reverse()
{
    std::reverse(begin(), end());
}

template <typename T>
std::int64_t Array<T>::indexOf(const T& value) const
{
    std::int64_t position = 0;
    if constexpr (std::is_arithmetic_v<T>)
        position = static_cast<std::int64_t>(kernels::find(m_data, static_cast<std::size_t>(m_count), value));
    else
        position = std::find(begin(), end(), value) - begin();
    return position < m_count ? position : -1;
}

template <typename T>
bool Array<T>::operator==(const Array& other) const
{
    if (m_count != other.m_count)
        return false;
    const auto count = static_cast<std::size_t>(m_count);
    if constexpr (std::is_arithmetic_v<T>)
        return kernels::equal(m_data, other.m_data, count);
    else
        return kernels::equal(reinterpret_cast<const double*>(m_data), reinterpret_cast<const double*>(other.m_data),
                              count * T::Size);
}

template class Array<std::int32_t>;
template class Array<float>;
template class Array<double>;
template class Array<vec3>;

} // namespace core
