#include "dataobjects/PixelConversion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

using DataObjects::ConvertPixel;
using DataObjects::ConvertPixels;

namespace {
double const NaN = std::numeric_limits<double>::quiet_NaN();
constexpr std::int32_t Int32Min = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t Int32Max = std::numeric_limits<std::int32_t>::max();
} // namespace

TEST(PixelConversion, FloatingSourceSaturatesThenTruncates)
{
    EXPECT_EQ(ConvertPixel<std::uint8_t>(300.7), 255);
    EXPECT_EQ(ConvertPixel<std::uint8_t>(-0.5), 0);
    EXPECT_EQ(ConvertPixel<std::uint8_t>(254.99), 254);
    EXPECT_EQ(ConvertPixel<std::uint16_t>(65535.9f), 65535);
    EXPECT_EQ(ConvertPixel<std::uint16_t>(1.9f), 1);
    EXPECT_EQ(ConvertPixel<std::uint16_t>(-1e30), 0);
    EXPECT_EQ(ConvertPixel<std::int32_t>(3e9), Int32Max);
    EXPECT_EQ(ConvertPixel<std::int32_t>(-3e9), Int32Min);
    EXPECT_EQ(ConvertPixel<std::int32_t>(-2147483648.0), Int32Min);
    EXPECT_EQ(ConvertPixel<std::int32_t>(2147483646.9), 2147483646);
    EXPECT_EQ(ConvertPixel<std::int32_t>(-7.9f), -7);
    EXPECT_EQ(ConvertPixel<std::uint32_t>(5e9), 4294967295u);
    EXPECT_EQ(ConvertPixel<std::uint32_t>(4294967294.5), 4294967294u);
    EXPECT_EQ(ConvertPixel<std::uint32_t>(std::numeric_limits<float>::infinity()), 4294967295u);
}

TEST(PixelConversion, NaNGivesZeroOrTheInt32Minimum)
{
    EXPECT_EQ(ConvertPixel<std::uint8_t>(NaN), 0);
    EXPECT_EQ(ConvertPixel<std::uint16_t>(float(NaN)), 0);
    EXPECT_EQ(ConvertPixel<std::uint32_t>(NaN), 0u);
    EXPECT_EQ(ConvertPixel<std::int32_t>(NaN), Int32Min);
    EXPECT_TRUE(std::isnan(ConvertPixel<float>(NaN)));
}

TEST(PixelConversion, IntegerSourceSaturates)
{
    EXPECT_EQ(ConvertPixel<std::int32_t>(std::uint32_t(4000000000u)), Int32Max);
    EXPECT_EQ(ConvertPixel<std::uint32_t>(std::int32_t(-5)), 0u);
    EXPECT_EQ(ConvertPixel<std::uint16_t>(std::int32_t(70000)), 65535);
    EXPECT_EQ(ConvertPixel<std::uint16_t>(std::int32_t(-1)), 0);
    EXPECT_EQ(ConvertPixel<std::uint8_t>(std::uint16_t(300)), 255);
    EXPECT_EQ(ConvertPixel<std::uint8_t>(std::uint32_t(4294967295u)), 255);
    EXPECT_EQ(ConvertPixel<std::uint32_t>(std::uint16_t(65535)), 65535u);
}

TEST(PixelConversion, FloatingTargetsRoundToNearestRepresentable)
{
    EXPECT_EQ(ConvertPixel<float>(std::int32_t(16777217)), 16777216.0f);
    EXPECT_EQ(ConvertPixel<float>(0.1), 0.1f);
    EXPECT_EQ(ConvertPixel<double>(std::uint32_t(4294967295u)), 4294967295.0);
}

TEST(PixelConversion, MaskTargetIsValidWhereNotZero)
{
    EXPECT_FALSE(ConvertPixel<bool>(0.0f));
    EXPECT_FALSE(ConvertPixel<bool>(-0.0));
    EXPECT_TRUE(ConvertPixel<bool>(1.5f));
    EXPECT_TRUE(ConvertPixel<bool>(NaN));
    EXPECT_TRUE(ConvertPixel<bool>(std::uint8_t(2)));
}

TEST(PixelConversion, BulkConversionMatchesElementRuleIncludingLoopTails)
{
    // Odd lengths reach the scalar tail behind the vectorised body.
    for (std::size_t n : {0u, 1u, 7u, 37u, 1001u}) {
        std::vector<double> source(n);
        for (std::size_t i = 0; i < n; ++i)
            source[i] = (i % 5 == 4) ? NaN : (double(i) - 10.0) * 3.7e7;
        std::vector<std::int32_t> target(n, 12345);
        ConvertPixels(target.data(), source.data(), n);
        for (std::size_t i = 0; i < n; ++i)
            ASSERT_EQ(target[i], ConvertPixel<std::int32_t>(source[i])) << "n " << n << " index " << i;

        std::vector<double> copy(n, -1.0);
        ConvertPixels(copy.data(), source.data(), n);
        for (std::size_t i = 0; i < n; ++i)
            ASSERT_TRUE(copy[i] == source[i] || (std::isnan(copy[i]) && std::isnan(source[i])));
    }
}
