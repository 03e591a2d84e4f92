#include "host/objects/NaturalOrder.h"

namespace hv {

namespace {

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

/// The end of the run of digits at `from`; leading zeros are skipped in `from`.
int digitsEnd(const QString& text, int& from)
{
    while (from + 1 < text.size() && text[from] == QLatin1Char('0') && isDigit(text[from + 1]))
        ++from;
    int end = from;
    while (end < text.size() && isDigit(text[end]))
        ++end;
    return end;
}

} // namespace

bool naturalLess(const QString& a, const QString& b)
{
    int i = 0;
    int j = 0;
    while (i < a.size() && j < b.size()) {
        if (isDigit(a[i]) && isDigit(b[j])) {
            const int endA = digitsEnd(a, i);
            const int endB = digitsEnd(b, j);
            if (endA - i != endB - j)
                return endA - i < endB - j;
            const int order = a.midRef(i, endA - i).compare(b.midRef(j, endB - j));
            if (order != 0)
                return order < 0;
            i = endA;
            j = endB;
            continue;
        }
        if (a[i] == b[j]) {
            ++i;
            ++j;
            continue;
        }
        const QChar lowerA = a[i].toCaseFolded();
        const QChar lowerB = b[j].toCaseFolded();
        if (lowerA != lowerB)
            return lowerA < lowerB;
        ++i;
        ++j;
    }
    if (a.size() - i != b.size() - j)
        return a.size() - i < b.size() - j;
    return a < b;
}

void appendNaturalKey(const QString& name, std::string& key)
{
    // Two bytes per character, the higher first. A run of digits begins like a digit, so that it stands among other
    // characters where digits do; then come its length and the digits.
    const auto put = [&key](char16_t code) {
        key.push_back(static_cast<char>(code >> 8));
        key.push_back(static_cast<char>(code & 0xff));
    };
    for (int i = 0; i < name.size();) {
        if (!isDigit(name[i])) {
            put(name[i++].toCaseFolded().unicode());
            continue;
        }
        const int end = digitsEnd(name, i);
        put(u'0');
        put(static_cast<char16_t>(end - i));
        for (; i < end; ++i)
            put(name[i].unicode());
    }
}

} // namespace hv
