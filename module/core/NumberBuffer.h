#pragma once

#include <boost/python/detail/wrap_python.hpp>

#include <cstddef>
#include <cstdint>

namespace python {

/// The numbers of an object that has the buffer protocol (numpy arrays, array.array, memoryview, bytes, typed arrays,
/// images): integers and bool of up to 64 bits, floats of 16, 32 and 64 bits, in both byte orders and any layout in
/// memory, in the notation of the struct module. Bytes are numbers from 0 to 255; nothing is ever reinterpreted. What
/// typed arrays and images are filled from.
///
/// Holds the view while it lives; the object stays as it is meanwhile. Made and destroyed with the interpreter lock;
/// the other members work without.
class NumberBuffer
{
public:
    /// An object that does not hand its buffer out gives isOpen() == false and its exception pending.
    explicit NumberBuffer(PyObject* source);
    ~NumberBuffer();
    NumberBuffer(const NumberBuffer&) = delete;
    NumberBuffer& operator=(const NumberBuffer&) = delete;

    bool isOpen() const { return m_view.obj != nullptr; }
    /// False for items that are no real numbers: complex ones, records, texts.
    bool isNumbers() const { return m_kind != Kind::None; }
    bool isFloating() const { return m_kind == Kind::Floating; }
    /// The items' type in the notation of the struct module.
    const char* format() const { return m_view.format ? m_view.format : "B"; }
    /// 0 for a single number (a NumPy scalar).
    int dimensions() const { return m_view.ndim; }
    Py_ssize_t extent(int dimension) const { return m_view.shape[dimension]; }
    /// Of all dimensions together.
    std::int64_t count() const { return m_count; }

    /// Writes count() numbers in C order of the indices to `target`, integers as an int object is converted. A double
    /// beyond the range of float becomes infinite. False when a value does not fit the target's integer type, `target`
    /// is then written all the same. isNumbers() is a condition, and integers are read only from integers.
    ///
    /// `target` may overlap the items only when isPlain<Target>().
    template <typename Target>
    [[nodiscard]] bool read(Target* target) const;
    /// The items are of the target's type and in its order.
    template <typename Target>
    bool isPlain() const;
    /// True when the items lie, even in part, in this piece of memory.
    bool overlaps(const void* memory, std::int64_t bytes) const;

private:
    enum class Kind
    {
        None,
        Signed,
        Unsigned,
        Floating,
    };

    void describe(const char* format);
    template <typename Target>
    bool isNative() const;
    template <typename Target>
    auto rowReader() const;

    Py_buffer m_view{};
    Kind m_kind = Kind::None;
    bool m_isSwapped = false;
    std::int64_t m_count = 1;
};

extern template bool NumberBuffer::read(std::int32_t* target) const;
extern template bool NumberBuffer::read(float* target) const;
extern template bool NumberBuffer::read(double* target) const;
extern template bool NumberBuffer::isPlain<float>() const;

} // namespace python
