#pragma once

#include <boost/python.hpp>

#include <cstddef>

namespace python {

/// One name of an enumeration that scripts see.
template <typename Enum>
struct NamedValue
{
    const char* name;
    Enum value;
};

/// Which of several names of one number a number shows that comes from the application.
enum class SharedNumber
{
    ShowsFirst,
    ShowsLast,
};

/// Registers `Enum` in the current scope with the names of `table`, in its order. Where a number has several names, all
/// of them are attributes and equal.
template <typename Enum, std::size_t Count>
void registerEnumeration(const char* name, const char* documentation, const NamedValue<Enum> (&table)[Count],
                         SharedNumber shared = SharedNumber::ShowsFirst)
{
    boost::python::enum_<Enum> type(name, documentation);
    for (const NamedValue<Enum>& each : table)
        type.value(each.name, each.value);
    // The binding layer has kept the last name of each number.
    if (shared == SharedNumber::ShowsLast)
        return;
    boost::python::object values = type.attr("values");
    for (std::size_t i = Count; i-- > 0;)
        values[static_cast<long>(table[i].value)] = type.attr(table[i].name);
}

} // namespace python
