#include "basis/TimeSpan.h"

#include <cmath>

namespace Basis {

TimeSpan::TimeSpan(std::int64_t seconds, std::int64_t picoseconds)
{
    std::int64_t carry = picoseconds / PicosecondsPerSecond;
    std::int64_t rest = picoseconds % PicosecondsPerSecond;
    if (rest < 0) {
        rest += PicosecondsPerSecond;
        --carry;
    }
    m_seconds = seconds + carry;
    m_picoseconds = rest;
}

TimeSpan TimeSpan::FromSeconds(double seconds)
{
    double const whole = std::floor(seconds);
    return {static_cast<std::int64_t>(whole),
            std::llround((seconds - whole) * double(PicosecondsPerSecond))};
}

double TimeSpan::ToSeconds() const
{
    return double(m_seconds) + double(m_picoseconds) / double(PicosecondsPerSecond);
}

TimeSpan TimeSpan::operator-() const { return {-m_seconds, -m_picoseconds}; }

TimeSpan & TimeSpan::operator+=(TimeSpan const & other)
{
    return *this = TimeSpan(m_seconds + other.m_seconds, m_picoseconds + other.m_picoseconds);
}

TimeSpan & TimeSpan::operator-=(TimeSpan const & other)
{
    return *this = TimeSpan(m_seconds - other.m_seconds, m_picoseconds - other.m_picoseconds);
}

} // namespace Basis
