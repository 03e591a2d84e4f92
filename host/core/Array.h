#pragma once

#include "host/core/ExportCount.h"
#include "host/core/Vector.h"

#include <cstdint>
#include <cstring>

namespace core {

/// A growable row of numbers in one contiguous buffer, the carrier of bulk data: T is std::int32_t, float, double or
/// vec3 (three doubles without padding).
///
/// No member throws. Whatever needs storage returns false (or null) when the size is negative, is more than an address
/// can reach, or the system refuses; the array is then as it was.
///
/// While somebody is counted in exports() every member that would change the element count fails and the buffer stays
/// where it is. Not thread-safe.
template <typename T>
class Array
{
    static_assert(std::is_trivially_copyable_v<T>);

public:
    using value_type = T;

    Array() = default;
    virtual ~Array();
    Array(const Array&) = delete;
    Array& operator=(const Array&) = delete;

    std::int64_t count() const { return m_count; }
    std::int64_t capacity() const { return m_capacity; }
    bool isEmpty() const { return m_count == 0; }
    /// Valid until the next call that changes the count; null before the first element.
    T* data() { return m_data; }
    const T* data() const { return m_data; }
    T* begin() { return m_data; }
    T* end() { return m_data + m_count; }
    const T* begin() const { return m_data; }
    const T* end() const { return m_data + m_count; }
    /// 0 <= index < count(), not tested.
    const T& operator[](std::int64_t index) const { return m_data[index]; }
    T& operator[](std::int64_t index) { return m_data[index]; }

    /// The second and third extent of a grid that is stored flat here (x runs fastest); 1 in a one-dimensional array,
    /// and 1 again after every change of the count. Fails unless the count is a whole number of such rows.
    std::int64_t extentY() const { return m_extentY; }
    std::int64_t extentZ() const { return m_extentZ; }
    [[nodiscard]] bool setExtents(std::int64_t y, std::int64_t z);

    /// `count` elements, all zero: nothing of the old content is kept.
    [[nodiscard]] bool resize(std::int64_t count);
    /// Room for `capacity` elements without further allocation; never shrinks.
    [[nodiscard]] bool reserve(std::int64_t capacity);
    /// Drops the elements from `count` on, if there are any.
    [[nodiscard]] bool truncate(std::int64_t count);
    /// No elements and no buffer.
    [[nodiscard]] bool clear();
    /// The count, content and extents of `other`.
    [[nodiscard]] bool assign(const Array& other);
    /// The same without a copy: the buffer itself changes hands and `other` gets the former one with its content. Fails
    /// only while one of the two is exported.
    [[nodiscard]] bool takeOver(Array& other);

    [[nodiscard]] bool append(const T& value)
    {
        if (m_count == m_capacity || isExported()) [[unlikely]]
            return appendSlowly(value);
        m_data[m_count++] = value;
        m_extentY = m_extentZ = 1;
        return true;
    }
    /// Copies `count` elements to the end; they may lie in this array.
    [[nodiscard]] bool appendRange(const T* values, std::int64_t count);
    /// Adds `count` elements of undefined value and returns the first of them; null on failure.
    [[nodiscard]] T* appendUninitialized(std::int64_t count);

    void reverse();
    /// Position of the first element equal to `value`, -1 when there is none.
    std::int64_t indexOf(const T& value) const;
    bool contains(const T& value) const { return indexOf(value) >= 0; }
    /// Equal counts and equal elements, exactly: a not-a-number equals nothing, not even itself.
    bool operator==(const Array& other) const;

    ExportCount& exports() { return m_exports; }
    const ExportCount& exports() const { return m_exports; }
    bool isExported() const { return !m_exports.isNone(); }

private:
    bool appendSlowly(T value);
    /// Makes room for `additional` more elements by at least half as much again.
    bool grow(std::int64_t additional);

    T* m_data = nullptr;
    std::int64_t m_count = 0;
    std::int64_t m_capacity = 0;
    std::int64_t m_extentY = 1;
    std::int64_t m_extentZ = 1;
    ExportCount m_exports;
};

extern template class Array<std::int32_t>;
extern template class Array<float>;
extern template class Array<double>;
extern template class Array<vec3>;

using IntArray = Array<std::int32_t>;
using FloatArray = Array<float>;
using DoubleArray = Array<double>;
using Vec3Array = Array<vec3>;

} // namespace core
