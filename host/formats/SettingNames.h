#pragma once

#include "host/georef/Enumerations.h"

#include <QString>

#include <optional>

/// Units and domains as files write them.
namespace hv {

QString unitName(georef::Unit unit);
/// Empty for a name of a later version.
std::optional<georef::Unit> unitFromName(const QString& name);

QString domainName(georef::Domain domain);
std::optional<georef::Domain> domainFromName(const QString& name);

} // namespace hv
