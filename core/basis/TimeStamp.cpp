#include "basis/TimeStamp.h"

namespace Basis {

namespace {
constexpr std::int64_t PicosecondsPerMillisecond = 1000000000;
}

TimeStamp::TimeStamp(std::int64_t seconds, std::uint64_t fraction)
    : TimeStamp(TimeSpan(seconds, 0) + TimeSpan(std::int64_t(fraction / TimeSpan::PicosecondsPerSecond),
                                                std::int64_t(fraction % TimeSpan::PicosecondsPerSecond)))
{
}

TimeStamp::TimeStamp(TimeSpan const & sinceEpoch)
    : m_seconds(sinceEpoch.GetSeconds())
    , m_fraction(std::uint64_t(sinceEpoch.GetPicoseconds()))
{
}

TimeSpan TimeStamp::SinceEpoch() const { return {m_seconds, std::int64_t(m_fraction)}; }

TimeStamp TimeStamp::FromSeconds(double seconds) { return TimeStamp(TimeSpan::FromSeconds(seconds)); }

TimeStamp TimeStamp::FromDateTime(QDateTime const & time)
{
    std::int64_t const ms = time.toMSecsSinceEpoch();
    return TimeStamp(TimeSpan(ms / 1000, (ms % 1000) * PicosecondsPerMillisecond));
}

double TimeStamp::ToSeconds() const { return SinceEpoch().ToSeconds(); }

QDateTime TimeStamp::ToDateTime() const
{
    return QDateTime::fromMSecsSinceEpoch(m_seconds * 1000 + std::int64_t(m_fraction) / PicosecondsPerMillisecond,
                                          Qt::UTC);
}

TimeStamp & TimeStamp::operator+=(TimeSpan const & span) { return *this = TimeStamp(SinceEpoch() + span); }
TimeStamp & TimeStamp::operator-=(TimeSpan const & span) { return *this = TimeStamp(SinceEpoch() - span); }

} // namespace Basis
