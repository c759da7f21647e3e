#pragma once

#include <cstdint>

namespace Basis {

//! A signed duration with picosecond resolution over the whole 64-bit range of seconds.
//!
//! Kept as whole seconds (rounded toward minus infinity) plus a non-negative fraction in units
//! of 10^-12 s, so -0.25 s is (-1 s, 750000000000 ps); every value has exactly one form.
class TimeSpan
{
public:
    static constexpr std::int64_t PicosecondsPerSecond = 1000000000000;

    constexpr TimeSpan() = default;
    //! Normalises any picosecond count, negative or beyond one second.
    TimeSpan(std::int64_t seconds, std::int64_t picoseconds);
    //! Rounds to the nearest picosecond.
    static TimeSpan FromSeconds(double seconds);

    std::int64_t GetSeconds() const { return m_seconds; }
    std::int64_t GetPicoseconds() const { return m_picoseconds; }
    double ToSeconds() const;

    TimeSpan operator-() const;
    TimeSpan & operator+=(TimeSpan const & other);
    TimeSpan & operator-=(TimeSpan const & other);
    friend TimeSpan operator+(TimeSpan a, TimeSpan const & b) { return a += b; }
    friend TimeSpan operator-(TimeSpan a, TimeSpan const & b) { return a -= b; }

    friend bool operator==(TimeSpan const & a, TimeSpan const & b) { return a.m_seconds == b.m_seconds && a.m_picoseconds == b.m_picoseconds; }
    friend bool operator!=(TimeSpan const & a, TimeSpan const & b) { return !(a == b); }
    friend bool operator<(TimeSpan const & a, TimeSpan const & b)
    {
        return a.m_seconds < b.m_seconds || (a.m_seconds == b.m_seconds && a.m_picoseconds < b.m_picoseconds);
    }
    friend bool operator>(TimeSpan const & a, TimeSpan const & b) { return b < a; }
    friend bool operator<=(TimeSpan const & a, TimeSpan const & b) { return !(b < a); }
    friend bool operator>=(TimeSpan const & a, TimeSpan const & b) { return !(a < b); }

private:
    std::int64_t m_seconds = 0;
    std::int64_t m_picoseconds = 0;
};

} // namespace Basis
