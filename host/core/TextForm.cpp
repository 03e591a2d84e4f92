#include "host/core/TextForm.h"

#include <charconv>
#include <cmath>

namespace core {

void appendFixed(std::string& text, double value, int decimals)
{
    // Sign, 309 digits, point and the decimals; no caller asks for more than 6 of these.
    char digits[384];
    const auto end = std::to_chars(digits, digits + sizeof digits, std::isnan(value) ? std::fabs(value) : value,
                                   std::chars_format::fixed, decimals);
    text.append(digits, end.ptr);
}

std::string joinFixed(std::initializer_list<double> values, int decimals)
{
    std::string text;
    for (const double value : values) {
        if (!text.empty())
            text += " , ";
        appendFixed(text, value, decimals);
    }
    return text;
}

} // namespace core
