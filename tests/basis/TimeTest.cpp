#include "basis/TimeSpan.h"
#include "basis/TimeStamp.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <type_traits>

using Basis::TimeSpan;
using Basis::TimeStamp;

namespace {

constexpr std::int64_t P = TimeSpan::PicosecondsPerSecond;

// Compares the stored fields, so that a normalisation fault in the constructor cannot hide
// one in the code under test.
template <class T, class F>
::testing::AssertionResult Is(T const & t, std::int64_t seconds, F fraction)
{
    if constexpr (std::is_same_v<T, TimeSpan>) {
        if (t.GetSeconds() == seconds && t.GetPicoseconds() == std::int64_t(fraction))
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "(" << t.GetSeconds() << " s, " << t.GetPicoseconds() << " ps)";
    } else {
        if (t.GetSeconds() == seconds && t.GetFraction() == std::uint64_t(fraction))
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "(" << t.GetSeconds() << " s, " << t.GetFraction() << " ps)";
    }
}

} // namespace

TEST(TimeSpan, NormalisesAndRoundsToPicoseconds)
{
    EXPECT_TRUE(Is(TimeSpan(0, -250000000000), -1, 750000000000));
    EXPECT_TRUE(Is(TimeSpan(1, 2500000000000), 3, 500000000000));
    EXPECT_TRUE(Is(TimeSpan(5, -3 * P), 2, 0));
    EXPECT_TRUE(Is(TimeSpan(0, -1), -1, P - 1));
    EXPECT_TRUE(Is(TimeSpan(0, INT64_MAX), 9223372, 36854775807));
    EXPECT_TRUE(Is(TimeSpan(0, INT64_MIN), -9223373, 963145224192));

    EXPECT_TRUE(Is(TimeSpan::FromSeconds(-0.25), -1, 750000000000));
    EXPECT_TRUE(Is(TimeSpan::FromSeconds(1e9 + 0.5), 1000000000, 500000000000));
    EXPECT_TRUE(Is(TimeSpan::FromSeconds(0.4e-12), 0, 0));
    EXPECT_TRUE(Is(TimeSpan::FromSeconds(0.6e-12), 0, 1));
    EXPECT_TRUE(Is(TimeSpan::FromSeconds(-0.6e-12), -1, P - 1));
    // Rounding up to a whole second must carry rather than leave a fraction of 10^12.
    EXPECT_TRUE(Is(TimeSpan::FromSeconds(1.0 - 1e-13), 1, 0));
    EXPECT_TRUE(Is(TimeSpan::FromSeconds(-1e-13), 0, 0));

    EXPECT_DOUBLE_EQ(TimeSpan(-1, 750000000000).ToSeconds(), -0.25);
    EXPECT_DOUBLE_EQ(TimeSpan(2, 500000000000).ToSeconds(), 2.5);
}

TEST(TimeSpan, ArithmeticAndOrdering)
{
    EXPECT_TRUE(Is(TimeSpan(1, 700000000000) + TimeSpan(0, 500000000000), 2, 200000000000));
    EXPECT_TRUE(Is(TimeSpan(0, 200000000000) - TimeSpan(1, 500000000000), -2, 700000000000));
    EXPECT_TRUE(Is(-TimeSpan(1, 250000000000), -2, 750000000000));
    EXPECT_TRUE(Is(-TimeSpan(3, 0), -3, 0));
    TimeSpan t(10, 0);
    t -= TimeSpan(0, 1);
    EXPECT_TRUE(Is(t, 9, P - 1));
    t += TimeSpan(0, 2);
    EXPECT_TRUE(Is(t, 10, 1));

    TimeSpan const negative = TimeSpan::FromSeconds(-0.25), zero, tiny(0, 1), second(1, 0);
    EXPECT_TRUE(negative < zero && zero < tiny && tiny < second && second > tiny);
    EXPECT_TRUE(zero <= TimeSpan(0, 0) && tiny >= zero && tiny != zero);
    EXPECT_FALSE(tiny <= zero || zero >= tiny || zero > zero);
}

TEST(TimeStamp, NormalisesConvertsAndCombinesWithSpans)
{
    EXPECT_TRUE(Is(TimeStamp(5, 2500000000000u), 7, 500000000000u));
    EXPECT_TRUE(Is(TimeStamp(5, std::uint64_t(P)), 6, 0u));
    // The fraction is unsigned: its top bit is a large value, not a sign.
    EXPECT_TRUE(Is(TimeStamp(5, UINT64_MAX), 5 + 18446744, 73709551615u));
    EXPECT_TRUE(Is(TimeStamp::FromSeconds(12.5), 12, 500000000000u));
    EXPECT_TRUE(Is(TimeStamp::FromSeconds(-0.25), -1, 750000000000u));
    EXPECT_DOUBLE_EQ(TimeStamp(12, 500000000000u).ToSeconds(), 12.5);

    TimeStamp const a(10, 200000000000u), b(8, 700000000000u);
    EXPECT_TRUE(Is(a - b, 1, 500000000000));
    EXPECT_TRUE(Is(b - a, -2, 500000000000));
    EXPECT_EQ(b + (a - b), a);
    EXPECT_TRUE(Is(TimeStamp(1, 900000000000u) + TimeSpan(0, 200000000000), 2, 100000000000u));
    EXPECT_TRUE(Is(TimeStamp(1, 100000000000u) - TimeSpan::FromSeconds(0.25), 0, 850000000000u));
    EXPECT_TRUE(Is(TimeStamp() - TimeSpan(0, 1), -1, P - 1));

    EXPECT_TRUE(b < a && TimeStamp(8, 1u) < TimeStamp(8, 2u) && a >= b && a > b);
    EXPECT_FALSE(a <= b || b > a || a < a);
}

TEST(TimeStamp, DateTimeRoundTrip)
{
    // Milliseconds since 1970 times 10^9 would not fit 64 bits.
    QDateTime const time(QDate(2026, 3, 14), QTime(15, 9, 26, 535), Qt::UTC);
    TimeStamp const stamp = TimeStamp::FromDateTime(time);
    EXPECT_TRUE(Is(stamp, 1773500966, 535000000000u));
    EXPECT_EQ(stamp.ToDateTime(), time);
    EXPECT_EQ(stamp.ToDateTime().toMSecsSinceEpoch(), 1773500966535);

    QDateTime const before1970(QDate(1969, 12, 31), QTime(23, 59, 59, 750), Qt::UTC);
    EXPECT_TRUE(Is(TimeStamp::FromDateTime(before1970), -1, 750000000000u));
    EXPECT_EQ(TimeStamp(-1, 750000000000u).ToDateTime(), before1970);
}
