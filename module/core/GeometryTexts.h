#pragma once

#include "host/core/Matrix.h"
#include "host/core/Vector.h"

namespace python::slots {

/// The messages of the vectors and matrices, whole, so that a search for what a user saw ends here.
template <typename T>
struct GeometryTexts;

template <>
struct GeometryTexts<core::vec2>
{
    static constexpr const char* getting = "vec2(), invalid index %d when getting element of vec2";
    static constexpr const char* setting = "vec2(), invalid index %d when setting element of vec2";
};

template <>
struct GeometryTexts<core::vec3>
{
    static constexpr const char* getting = "vec3(), invalid index %d when getting element of vec3";
    static constexpr const char* setting = "vec3(), invalid index %d when setting element of vec3";
};

/// Reading says "setting" as well: scripts know vec4 by this text.
template <>
struct GeometryTexts<core::vec4>
{
    static constexpr const char* getting = "vec4(), invalid index %d when setting element of vec4";
    static constexpr const char* setting = getting;
};

template <>
struct GeometryTexts<core::mat3>
{
    static constexpr const char* getting = "mat3(), invalid index %d when getting element of mat3";
    static constexpr const char* setting = "mat3(), invalid index %d when setting element of mat3";
    static constexpr const char* singular = "mat3.invert(), matrix is not invertible";
};

template <>
struct GeometryTexts<core::mat4>
{
    static constexpr const char* getting = "mat4(), invalid index %d when getting element of mat4";
    static constexpr const char* setting = "mat4(), invalid index %d when setting element of mat4";
    static constexpr const char* singular = "mat4.invert(), matrix is not invertible";
};

} // namespace python::slots
