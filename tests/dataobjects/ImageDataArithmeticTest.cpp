#include "dataobjects/ImageData.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

using namespace DataObjects;

namespace {

template <class T>
ImageData<T> Row(std::vector<double> const & values)
{
    ImageData<T> plane(unsigned(values.size()), 1u);
    for (unsigned int i = 0; i < values.size(); ++i)
        plane(i, 0) = T(values[i]);
    return plane;
}

template <class T>
std::vector<T> Pixels(ImageData<T> const & plane)
{
    return {plane.begin(), plane.end()};
}

double const NaN = std::numeric_limits<double>::quiet_NaN();

} // namespace

TEST(ImageDataArithmetic, Uint16RoundsHalfToEvenWhileOtherIntegersTruncate)
{
    auto words = Row<std::uint16_t>({10, 11, 10, 10});
    words += 0.5;
    EXPECT_EQ(Pixels(words), (std::vector<std::uint16_t>{10, 12, 10, 10}));
    words += 1.5;
    EXPECT_EQ(Pixels(words), (std::vector<std::uint16_t>{12, 14, 12, 12}));
    words -= 0.3;
    EXPECT_EQ(Pixels(words), (std::vector<std::uint16_t>{12, 14, 12, 12}));

    auto bytes = Row<std::uint8_t>({10});
    bytes += 0.7;
    EXPECT_EQ(bytes(0, 0), 10);

    auto ints = Row<std::int32_t>({-5, 5});
    ints *= 2.5; // -12.5 and 12.5 truncate toward zero
    EXPECT_EQ(Pixels(ints), (std::vector<std::int32_t>{-12, 12}));
}

TEST(ImageDataArithmetic, ResultsSaturateToThePixelRange)
{
    auto words = Row<std::uint16_t>({65000, 5, 50000});
    words += 1000.0;
    EXPECT_EQ(Pixels(words), (std::vector<std::uint16_t>{65535, 1005, 51000}));
    words *= 60000.0; // 3e9 and beyond must saturate, not wrap
    EXPECT_EQ(Pixels(words), (std::vector<std::uint16_t>{65535, 65535, 65535}));
    words -= 1e12;
    EXPECT_EQ(Pixels(words), (std::vector<std::uint16_t>{0, 0, 0}));

    auto bytes = Row<std::uint8_t>({5, 250});
    bytes -= 10.0;
    EXPECT_EQ(Pixels(bytes), (std::vector<std::uint8_t>{0, 240}));
    bytes *= 2.0;
    EXPECT_EQ(Pixels(bytes), (std::vector<std::uint8_t>{0, 255}));

    auto ints = Row<std::int32_t>({2147483000, -2147483000});
    ints *= 2.0;
    EXPECT_EQ(Pixels(ints), (std::vector<std::int32_t>{2147483647, std::numeric_limits<std::int32_t>::min()}));

    auto unsignedInts = Row<std::uint32_t>({3, 4294967000u});
    unsignedInts -= 5.0;
    EXPECT_EQ(Pixels(unsignedInts), (std::vector<std::uint32_t>{0, 4294966995u}));
    unsignedInts += 1e10;
    EXPECT_EQ(Pixels(unsignedInts), (std::vector<std::uint32_t>{4294967295u, 4294967295u}));
}

TEST(ImageDataArithmetic, FloatAddsInFloatAndMultipliesInDouble)
{
    // Just above half an ulp of 1.0f: in double the sum rounds up when narrowed; narrowed
    // first, the addend is exactly half an ulp and the float sum ties to even, staying at 1.
    double const d = std::ldexp(1.0, -24) + std::ldexp(1.0, -50);
    auto floats = Row<float>({1.0});
    floats += d;
    EXPECT_EQ(floats(0, 0), 1.0f);
    floats -= -d;
    EXPECT_EQ(floats(0, 0), 1.0f);

    auto doubles = Row<double>({1.0});
    doubles += d;
    EXPECT_EQ(doubles(0, 0), 1.0 + d);

    auto product = Row<float>({1.0});
    product *= 1.0 + d; // double product rounds up when narrowed
    EXPECT_EQ(product(0, 0), std::nextafter(1.0f, 2.0f));
}

TEST(ImageDataArithmetic, DivisionByZeroGivesTheLargestValueForEveryNonZeroPixel)
{
    auto floats = Row<float>({-2, 0, NaN});
    floats /= 0.0;
    EXPECT_EQ(Pixels(floats), (std::vector<float>{3.4028235e38f, 0.0f, 3.4028235e38f}));

    auto doubles = Row<double>({1e-300, -0.0});
    doubles /= 0.0;
    EXPECT_EQ(Pixels(doubles), (std::vector<double>{1.7976931348623157e308, 0.0}));

    EXPECT_EQ(Pixels(Row<std::uint8_t>({0, 7}) / 0.0), (std::vector<std::uint8_t>{0, 255}));
    EXPECT_EQ(Pixels(Row<std::uint16_t>({3, 0}) / 0.0), (std::vector<std::uint16_t>{65535, 0}));
    EXPECT_EQ(Pixels(Row<std::int32_t>({-3, 0}) / 0.0), (std::vector<std::int32_t>{2147483647, 0}));
    EXPECT_EQ(Pixels(Row<std::uint32_t>({1, 0}) / 0.0), (std::vector<std::uint32_t>{4294967295u, 0}));

    // A divisor that is merely tiny divides.
    EXPECT_EQ(Pixels(Row<std::uint8_t>({0, 1}) / 1e-300), (std::vector<std::uint8_t>{0, 255}));
    EXPECT_EQ(Pixels(Row<double>({-3}) / -0.5), (std::vector<double>{6.0}));
}

TEST(ImageDataArithmetic, BinaryOperatorsWorkOnACopy)
{
    auto const plane = Row<std::uint16_t>({1, 2, 3});
    auto const sum = plane + 10.0;
    auto const difference = plane - 1.0;
    auto const product = plane * 3.0;
    auto const quotient = plane / 2.0;
    EXPECT_EQ(Pixels(plane), (std::vector<std::uint16_t>{1, 2, 3}));
    EXPECT_EQ(Pixels(sum), (std::vector<std::uint16_t>{11, 12, 13}));
    EXPECT_EQ(Pixels(difference), (std::vector<std::uint16_t>{0, 1, 2}));
    EXPECT_EQ(Pixels(product), (std::vector<std::uint16_t>{3, 6, 9}));
    EXPECT_EQ(Pixels(quotient), (std::vector<std::uint16_t>{0, 1, 2})); // 0.5 and 1.5 tie to even
    EXPECT_TRUE(sum.HasOwnerShip());
}

TEST(ImageDataArithmetic, LargePlanesGiveThePixelByPixelResult)
{
    // Large enough for the parallel loop; each pixel checked against the rounding rule.
    ImageData<std::uint16_t> plane(700, 500);
    for (unsigned int i = 0; i < 700u * 500u; ++i)
        plane.GetRawPointer()[i] = std::uint16_t(i * 7);
    plane *= 1.5;
    for (unsigned int i = 0; i < 700u * 500u; ++i) {
        double const expected = std::min(65535.0, std::nearbyint(double(std::uint16_t(i * 7)) * 1.5));
        ASSERT_EQ(plane.GetRawPointer()[i], expected) << i;
    }
}

TEST(ImageDataArithmetic, PlanesBeyondThe32BitLoopCountAreLeftUnchanged)
{
    // Views over a small block: the operators must not touch a single pixel.
    std::vector<float> block(16, 1.0f);
    for (unsigned int height : {32768u, 32769u, 65537u}) {
        ImageData<float> huge(block.data(), 65536u, height, false);
        huge += 1.0;
        huge *= 2.0;
        huge /= 0.0;
        EXPECT_EQ(block, std::vector<float>(16, 1.0f)) << height;
    }

    ImageData<float> empty(0u, 5u);
    empty += 1.0;
    EXPECT_EQ(empty.begin(), empty.end());
}
