#pragma once

#include <boost/python/object.hpp>

#include <vector>

namespace python {

/// A new NumPy array of 32-bit floats in C order, with undefined values, and its memory to be filled.
///
/// Made and destroyed with the interpreter lock, which the filling can do without.
class NewFloatArray
{
public:
    /// Raises ImportError where NumPy is not installed, MemoryError when memory is short.
    explicit NewFloatArray(const std::vector<Py_ssize_t>& extents);
    ~NewFloatArray();
    NewFloatArray(const NewFloatArray&) = delete;
    NewFloatArray& operator=(const NewFloatArray&) = delete;

    float* data() const { return static_cast<float*>(m_view.buf); }
    const boost::python::object& object() const { return m_array; }

private:
    boost::python::object m_array;
    Py_buffer m_view{};
};

} // namespace python
