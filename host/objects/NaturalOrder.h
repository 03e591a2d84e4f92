#pragma once

#include <QString>

namespace hv {

/// Order of names as people expect it: runs of digits by their number ("Line 2" before "Line 10"), letters without
/// regard to case, and only then by code. A strict weak order that does not depend on the language.
bool naturalLess(const QString& a, const QString& b);

} // namespace hv
