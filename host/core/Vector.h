#pragma once

#include "host/core/TextForm.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <type_traits>
#include <utility>

/// host/core: the values everything else is made of (vectors, matrices, typed arrays, aligned buffers) without Qt,
/// without files, without threads. Values are copied freely; nothing here has shared state, so any thread may use its
/// own objects.
namespace core {

/// What vec2, vec3 and vec4 have in common. Derived names its components, in storage order, in `components()`.
///
/// All arithmetic is plain IEEE double arithmetic: nothing tests for zero, the caller does where it matters.
template <typename Derived, std::size_t N>
class Vector
{
public:
    static constexpr std::size_t Size = N;

    /// `index` must be below Size.
    constexpr double operator[](std::size_t index) const { return self().*Derived::components()[index]; }
    constexpr double& operator[](std::size_t index) { return self().*Derived::components()[index]; }

    constexpr Derived& operator+=(const Derived& other)
    {
        return self() = zip(self(), other, [](double a, double b) { return a + b; });
    }
    constexpr Derived& operator-=(const Derived& other)
    {
        return self() = zip(self(), other, [](double a, double b) { return a - b; });
    }
    constexpr Derived& operator*=(double factor)
    {
        return self() = zip(self(), self(), [factor](double a, double) { return a * factor; });
    }
    /// Multiplies by 1/divisor: the last bit may differ from a true division of each component.
    constexpr Derived& operator/=(double divisor) { return *this *= 1.0 / divisor; }

    friend constexpr Derived operator+(Derived a, const Derived& b) { return a += b; }
    friend constexpr Derived operator-(Derived a, const Derived& b) { return a -= b; }
    friend constexpr Derived operator*(Derived a, double factor) { return a *= factor; }
    friend constexpr Derived operator*(double factor, Derived a) { return a *= factor; }
    friend constexpr Derived operator/(Derived a, double divisor) { return a /= divisor; }
    friend constexpr Derived operator-(const Derived& a)
    {
        return zip(a, a, [](double value, double) { return -value; });
    }
    /// Exact: no tolerance, a not-a-number equals nothing, -0 equals 0.
    friend constexpr bool operator==(const Derived& a, const Derived& b)
    {
        return [&]<std::size_t... I>(std::index_sequence<I...>)
        {
            return ((a[I] == b[I]) && ...);
        }
        (std::make_index_sequence<N>());
    }
    /// Sum of the products, added from the first component to the last.
    friend constexpr double dot(const Derived& a, const Derived& b)
    {
        return [&]<std::size_t... I>(std::index_sequence<I...>)
        {
            return (... + (a[I] * b[I]));
        }
        (std::make_index_sequence<N>());
    }

    constexpr double lengthSquared() const { return dot(self(), self()); }
    double length() const { return std::sqrt(lengthSquared()); }
    /// Divides by the length, in place; the zero vector becomes not-a-number.
    Derived& normalize() { return *this *= 1.0 / length(); }

protected:
    constexpr Vector() = default;

private:
    constexpr Derived& self() { return static_cast<Derived&>(*this); }
    constexpr const Derived& self() const { return static_cast<const Derived&>(*this); }

    template <typename Function>
    static constexpr Derived zip(const Derived& a, const Derived& b, Function function)
    {
        return [&]<std::size_t... I>(std::index_sequence<I...>)
        {
            return Derived(function(a[I], b[I])...);
        }
        (std::make_index_sequence<N>());
    }
};

struct vec2 : Vector<vec2, 2>
{
    constexpr vec2() = default;
    constexpr vec2(double x_, double y_) : x(x_), y(y_) {}
    static constexpr std::array<double vec2::*, 2> components() { return {&vec2::x, &vec2::y}; }
    /// "x , y" with 6 decimals.
    std::string toText() const { return joinFixed({x, y}, 6); }

    double x = 0.0;
    double y = 0.0;
};

struct vec3 : Vector<vec3, 3>
{
    constexpr vec3() = default;
    constexpr vec3(double x_, double y_, double z_) : x(x_), y(y_), z(z_) {}
    static constexpr std::array<double vec3::*, 3> components() { return {&vec3::x, &vec3::y, &vec3::z}; }
    /// "x , y , z" with 6 decimals.
    std::string toText() const { return joinFixed({x, y, z}, 6); }

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

struct vec4 : Vector<vec4, 4>
{
    constexpr vec4() = default;
    constexpr vec4(double x_, double y_, double z_, double w_) : x(x_), y(y_), z(z_), w(w_) {}
    static constexpr std::array<double vec4::*, 4> components() { return {&vec4::x, &vec4::y, &vec4::z, &vec4::w}; }
    /// "x , y , z , w" with 3 decimals (not 6 as in the shorter vectors).
    std::string toText() const { return joinFixed({x, y, z, w}, 3); }

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    double w = 0.0;
};

constexpr vec3 cross(const vec3& a, const vec3& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

/// The cross product of two vectors of the x-y plane: only z differs from zero.
constexpr vec3 cross(const vec2& a, const vec2& b)
{
    return {0.0, 0.0, a.x * b.y - a.y * b.x};
}

// Arrays of vectors are handed out as plain doubles (numpy, files), so the layout is part of the promise.
static_assert(sizeof(vec2) == 16 && sizeof(vec3) == 24 && sizeof(vec4) == 32);
static_assert(std::is_trivially_copyable_v<vec2> && std::is_standard_layout_v<vec2>);
static_assert(std::is_trivially_copyable_v<vec3> && std::is_standard_layout_v<vec3>);
static_assert(std::is_trivially_copyable_v<vec4> && std::is_standard_layout_v<vec4>);

} // namespace core
