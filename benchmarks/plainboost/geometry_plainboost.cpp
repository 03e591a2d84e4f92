// vec3 and mat4 as Boost.Python binds them out of the box. The types are this file's own: the registry of the binding
// layer is shared by the process, and the host's types are registered there already.

#include <boost/python.hpp>

#include <array>
#include <cstddef>

namespace bp = boost::python;

namespace {

struct Vec3
{
    Vec3() = default;
    Vec3(double x_, double y_, double z_) : x(x_), y(y_), z(z_) {}
    Vec3 operator+(const Vec3& other) const { return {x + other.x, y + other.y, z + other.z}; }
    Vec3& operator+=(const Vec3& other) { return *this = *this + other; }
    Vec3 operator*(double factor) const { return {x * factor, y * factor, z * factor}; }
    double operator*(const Vec3& other) const { return x * other.x + y * other.y + z * other.z; }

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

struct Mat4
{
    explicit Mat4(double value)
    {
        m.fill(value);
        for (std::size_t i = 0; i < 4; ++i)
            m[5 * i] += 1.0;
    }

    std::array<double, 16> m{};
};

Vec3 operator*(const Mat4& matrix, const Vec3& v)
{
    const auto& m = matrix.m;
    const double w = m[12] * v.x + m[13] * v.y + m[14] * v.z + m[15];
    return {(m[0] * v.x + m[1] * v.y + m[2] * v.z + m[3]) / w, (m[4] * v.x + m[5] * v.y + m[6] * v.z + m[7]) / w,
            (m[8] * v.x + m[9] * v.y + m[10] * v.z + m[11]) / w};
}

double item(const Vec3& v, unsigned index)
{
    return index == 0 ? v.x : index == 1 ? v.y : v.z;
}

} // namespace

BOOST_PYTHON_MODULE(geometry_plainboost)
{
    bp::class_<Mat4>("mat4", bp::init<double>());
    bp::class_<Vec3>("vec3")
        .def(bp::init<double, double, double>())
        .def_readwrite("x", &Vec3::x)
        .def_readwrite("y", &Vec3::y)
        .def_readwrite("z", &Vec3::z)
        .def("__getitem__", item)
        .def(bp::self + bp::self)
        .def(bp::self += bp::self)
        .def(bp::self * double())
        .def(bp::self * bp::self)
        .def(bp::other<Mat4>() * bp::self);
}
