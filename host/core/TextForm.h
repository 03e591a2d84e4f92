#pragma once

#include <initializer_list>
#include <string>

namespace core {

/// Appends `value` in fixed-point notation with `decimals` digits after a point, whatever the locale. Any finite value
/// is written in full (1e308 has 309 digits before the point); the others read "nan" (the sign of a not-a-number means
/// nothing and is left out), "inf" and "-inf".
void appendFixed(std::string& text, double value, int decimals);

/// The values in fixed-point notation joined by " , ".
std::string joinFixed(std::initializer_list<double> values, int decimals);

} // namespace core
