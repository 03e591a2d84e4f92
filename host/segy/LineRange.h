#pragma once

#include <cstdint>
#include <numeric>
#include <optional>

namespace hv::segy {

/// Line numbers first, first + step, ... last.
struct LineRange
{
    std::int64_t first = 0;
    std::int64_t last = 0;
    std::int64_t step = 1;

    std::int64_t count() const { return (last - first) / step + 1; }
    bool contains(std::int64_t number) const
    {
        return number >= first && number <= last && (number - first) % step == 0;
    }
    /// Only of numbers that it contains.
    std::int64_t index(std::int64_t number) const { return (number - first) / step; }
    std::int64_t number(std::int64_t index) const { return first + index * step; }
    friend bool operator==(const LineRange&, const LineRange&) = default;
};

/// Finds the range of numbers that come one by one.
class RangeFinder
{
public:
    void add(std::int64_t number)
    {
        if (m_isEmpty) {
            m_first = m_last = m_origin = number;
            m_isEmpty = false;
        } else if (number != m_latest) {
            m_first = number < m_first ? number : m_first;
            m_last = number > m_last ? number : m_last;
            if (m_step != 1)
                m_step = std::gcd(m_step, number - m_origin);
        }
        m_latest = number;
    }
    bool isEmpty() const { return m_isEmpty; }
    /// The smallest regular range that holds all of them.
    LineRange range() const { return {m_first, m_last, m_step > 0 ? m_step : 1}; }

private:
    bool m_isEmpty = true;
    std::int64_t m_origin = 0, m_first = 0, m_last = 0, m_latest = 0;
    std::int64_t m_step = 0;
};

} // namespace hv::segy
