#pragma once

#include <QString>

#include <string>

namespace hv {

/// Order of names as people expect it: runs of digits by their number ("Line 2" before "Line 10"), letters without
/// regard to case, and only then by code. A strict weak order that does not depend on the language.
bool naturalLess(const QString& a, const QString& b);

/// Appends bytes whose order (memcmp, a beginning before what it begins) is that of the names. Names that differ only
/// in case and in leading zeros have the same.
void appendNaturalKey(const QString& name, std::string& key);

} // namespace hv
