#pragma once

#include <boost/python/detail/wrap_python.hpp>

#include <cstdint>

namespace python {

/// The numbers of an object that has the buffer protocol (numpy arrays, array.array, memoryview, bytes, typed arrays):
/// integers and floats of every width and both byte orders, in the notation of the struct module.
///
/// Holds the view while it lives. Needs the interpreter lock.
class NumberBuffer
{
public:
    /// Objects without a buffer, or with one of anything else, give isNumbers() == false and no exception.
    explicit NumberBuffer(PyObject* source);
    ~NumberBuffer();
    NumberBuffer(const NumberBuffer&) = delete;
    NumberBuffer& operator=(const NumberBuffer&) = delete;

    bool isNumbers() const { return m_kind != Kind::None; }
    bool isFloating() const { return m_kind == Kind::Floating; }
    int dimensions() const { return m_view.ndim; }
    Py_ssize_t extent(int dimension) const { return m_view.shape[dimension]; }
    /// Of all dimensions together.
    Py_ssize_t count() const { return m_view.len / m_view.itemsize; }

    /// Writes count() numbers in C order to `target`. A value that the target's integer
    /// type can not hold is an OverflowError, a double beyond the range of float becomes infinite. False: exception
    /// set, `target` partly written. Integers are read only from integers.
    bool read(std::int32_t* target) const;
    bool read(float* target) const;
    bool read(double* target) const;

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
    bool readAs(Target* target) const;

    Py_buffer m_view{};
    Kind m_kind = Kind::None;
    bool m_isSwapped = false;
};

} // namespace python
