// An array of 32-bit floats as Boost.Python binds it out of the box, with the arguments checked by the binding layer.

#include <boost/python.hpp>
#include <boost/python/stl_iterator.hpp>

#include <vector>

namespace bp = boost::python;

namespace {

struct Array
{
    Array() = default;
    explicit Array(long size) : v(static_cast<std::size_t>(size)) {}

    long length() const { return static_cast<long>(v.size()); }
    float item(long index) const { return v.at(static_cast<std::size_t>(index)); }
    void assign(long index, float value) { v.at(static_cast<std::size_t>(index)) = value; }
    void append(float value) { v.push_back(value); }
    void extend(const bp::object& sequence)
    {
        v.insert(v.end(), bp::stl_input_iterator<float>(sequence), bp::stl_input_iterator<float>());
    }

    std::vector<float> v;
};

} // namespace

BOOST_PYTHON_MODULE(arrays_plainboost)
{
    bp::class_<Array>("FloatArray")
        .def(bp::init<long>())
        .def("__len__", &Array::length)
        .def("__getitem__", &Array::item)
        .def("__setitem__", &Array::assign)
        .def("append", &Array::append)
        .def("extend", &Array::extend);
}
