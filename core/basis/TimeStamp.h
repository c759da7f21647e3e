#pragma once

#include "basis/TimeSpan.h"

#include <QDateTime>

#include <cstdint>

namespace Basis {

//! A point in time: whole seconds plus a fraction in units of 10^-12 s, fraction below one
//! second. The epoch is the caller's: recordings count from their start, wall-clock stamps from
//! 1970-01-01 UTC (FromDateTime, ToDateTime).
class TimeStamp
{
public:
    constexpr TimeStamp() = default;
    //! The fraction is normalised, so a fraction of one second or more carries into the seconds.
    TimeStamp(std::int64_t seconds, std::uint64_t fraction);
    //! Whole seconds (rounded toward minus infinity, which truncates any non-negative time) and
    //! the rest rounded to the nearest picosecond.
    static TimeStamp FromSeconds(double seconds);
    static TimeStamp FromDateTime(QDateTime const & time);

    std::int64_t GetSeconds() const { return m_seconds; }
    std::uint64_t GetFraction() const { return m_fraction; }
    double ToSeconds() const;
    QDateTime ToDateTime() const;

    TimeStamp & operator+=(TimeSpan const & span);
    TimeStamp & operator-=(TimeSpan const & span);
    friend TimeStamp operator+(TimeStamp t, TimeSpan const & s) { return t += s; }
    friend TimeStamp operator-(TimeStamp t, TimeSpan const & s) { return t -= s; }
    friend TimeSpan operator-(TimeStamp const & a, TimeStamp const & b)
    {
        return {a.m_seconds - b.m_seconds, std::int64_t(a.m_fraction) - std::int64_t(b.m_fraction)};
    }

    friend bool operator==(TimeStamp const & a, TimeStamp const & b) { return a.m_seconds == b.m_seconds && a.m_fraction == b.m_fraction; }
    friend bool operator!=(TimeStamp const & a, TimeStamp const & b) { return !(a == b); }
    friend bool operator<(TimeStamp const & a, TimeStamp const & b)
    {
        return a.m_seconds < b.m_seconds || (a.m_seconds == b.m_seconds && a.m_fraction < b.m_fraction);
    }
    friend bool operator>(TimeStamp const & a, TimeStamp const & b) { return b < a; }
    friend bool operator<=(TimeStamp const & a, TimeStamp const & b) { return !(b < a); }
    friend bool operator>=(TimeStamp const & a, TimeStamp const & b) { return !(a < b); }

private:
    explicit TimeStamp(TimeSpan const & sinceEpoch);
    TimeSpan SinceEpoch() const;

    std::int64_t m_seconds = 0;
    std::uint64_t m_fraction = 0;
};

} // namespace Basis
