#include "host/formats/SettingNames.h"

#include <array>
#include <utility>

namespace hv {

namespace {

using georef::Domain;
using georef::Unit;

constexpr std::array<std::pair<Unit, const char*>, 14> g_units{{
    {Unit::Meters, "Meters"},
    {Unit::Feet, "Feet"},
    {Unit::Milliseconds, "Milliseconds"},
    {Unit::Seconds, "Seconds"},
    {Unit::Kilometers, "Kilometers"},
    {Unit::Miles, "Miles"},
    {Unit::FeetUS, "FeetUS"},
    {Unit::Decimeters, "Decimeters"},
    {Unit::Centimeters, "Centimeters"},
    {Unit::MilesUS, "MilesUS"},
    {Unit::Yards, "Yards"},
    {Unit::YardsUS, "YardsUS"},
    {Unit::Inches, "Inches"},
    {Unit::InchesUS, "InchesUS"},
}};
constexpr std::array<std::pair<Domain, const char*>, 4> g_domains{
    {{Domain::Unknown, "Unknown"}, {Domain::Time, "Time"}, {Domain::Depth, "Depth"}, {Domain::All, "All"}}};

template <typename Table, typename Value>
QString nameOf(const Table& table, Value value)
{
    for (const auto& [each, name] : table)
        if (each == value)
            return QString::fromLatin1(name);
    return {};
}

template <typename Value, typename Table>
std::optional<Value> valueOf(const Table& table, const QString& name)
{
    for (const auto& [value, each] : table)
        if (name == QLatin1String(each))
            return value;
    return std::nullopt;
}

} // namespace

QString unitName(Unit unit)
{
    return nameOf(g_units, unit);
}

std::optional<Unit> unitFromName(const QString& name)
{
    return valueOf<Unit>(g_units, name);
}

QString domainName(Domain domain)
{
    return nameOf(g_domains, domain);
}

std::optional<Domain> domainFromName(const QString& name)
{
    return valueOf<Domain>(g_domains, name);
}

} // namespace hv
