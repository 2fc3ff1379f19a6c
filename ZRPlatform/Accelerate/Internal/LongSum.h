#pragma once

#include <cstdint>

namespace zr::detail {

/// A sum that may need more than 64 bits, as how often the area goes into it and what is left: a sum of a whole kernel
/// of bytes is less than 256 areas, and an area is less than 2^64. Numbers below 2^64 may be added and taken away as
/// long as the sum stays positive.
class LongSum {
public:
    LongSum(std::uint64_t area, std::uint64_t value) : m_area(area), m_quotient(value / area), m_rest(value % area) {}

    void add(std::uint64_t value) {
        if (value >= m_area) {
            m_quotient += value / m_area;
            value %= m_area;
        }
        if (m_rest >= m_area - value) {
            m_rest -= m_area - value;
            ++m_quotient;
        } else {
            m_rest += value;
        }
    }

    void subtract(std::uint64_t value) {
        if (value >= m_area) {
            m_quotient -= value / m_area;
            value %= m_area;
        }
        if (m_rest >= value) {
            m_rest -= value;
        } else {
            m_rest += m_area - value;
            --m_quotient;
        }
    }

    /// Adds `value` `times` times, by binary digits of `times`.
    void addMultiple(std::uint64_t value, std::uint64_t times) {
        LongSum multiple(m_area, value);
        for (; times != 0; times >>= 1) {
            if (times & 1) {
                m_quotient += multiple.m_quotient;
                add(multiple.m_rest);
            }
            multiple.m_quotient *= 2;
            multiple.add(multiple.m_rest);
        }
    }

    std::uint64_t quotient() const { return m_quotient; }
    std::uint64_t rest() const { return m_rest; }
    /// The last 64 bits of the sum.
    std::uint64_t lowBits() const { return m_quotient * m_area + m_rest; }

private:
    std::uint64_t m_area;
    std::uint64_t m_quotient;
    std::uint64_t m_rest;
};

} // namespace zr::detail
