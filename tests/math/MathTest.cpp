#include "math/Math.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

using namespace Math;

TEST(Size, EqualityAndElementCount)
{
    EXPECT_EQ(Size2T<unsigned>(3, 4), Size2T<unsigned>(3, 4));
    EXPECT_NE(Size2T<unsigned>(3, 4), Size2T<unsigned>(4, 3));
    EXPECT_NE(Size3T<unsigned>(3, 4, 5), Size3T<unsigned>(3, 4, 6));
    EXPECT_NE(Size3T<unsigned>(3, 4, 5), Size3T<unsigned>(3, 5, 5));

    EXPECT_EQ(ElementCount(Size2T<unsigned>(3, 4)), 12u);
    EXPECT_EQ(ElementCount(Size3T<unsigned>(3, 4, 0)), 0u);
    // Products beyond 32 bits must not wrap.
    EXPECT_EQ(ElementCount(Size2T<unsigned>(65536, 65536)), std::uint64_t(1) << 32);
    EXPECT_EQ(ElementCount(Size2T<unsigned>(0xFFFFFFFFu, 0xFFFFFFFFu)), 0xFFFFFFFE00000001ull);
    EXPECT_EQ(ElementCount(Size3T<unsigned>(65536, 65536, 3)), std::uint64_t(3) << 32);
}

TEST(Point, Equality)
{
    EXPECT_EQ(Point2T<int>(1, 2), Point2T<int>(1, 2));
    EXPECT_NE(Point2T<int>(1, 2), Point2T<int>(1, 3));
    EXPECT_NE(Point2T<int>(1, 2), Point2T<int>(0, 2));
    EXPECT_NE(Point3T<double>(1, 2, 3), Point3T<double>(1, 2, 4));
}

TEST(Vector, ArithmeticDotCrossLength)
{
    using V2 = Vector2T<double>;
    EXPECT_EQ(V2(1, 2) + V2(10, 20), V2(11, 22));
    EXPECT_EQ(V2(1, 2) - V2(10, 20), V2(-9, -18));
    EXPECT_EQ(3.0 * V2(1, 2), V2(3, 6));
    EXPECT_EQ(V2(3, 6) / 3.0, V2(1, 2));
    EXPECT_EQ(-V2(1, -2), V2(-1, 2));
    EXPECT_EQ(V2(2, 3).Dot(V2(4, -5)), -7.0);
    EXPECT_DOUBLE_EQ(V2(-3, 4).Length(), 5.0);

    using V3 = Vector3T<int>;
    V3 v(1, 2, 3);
    v += V3(1, 1, 1);
    v -= V3(2, 0, 0);
    EXPECT_EQ(v, V3(0, 3, 4));
    EXPECT_EQ(v * 2, V3(0, 6, 8));
    EXPECT_EQ(V3(0, 6, 8) / 2, v);
    EXPECT_EQ(-v, V3(0, -3, -4));
    EXPECT_EQ(V3(1, 2, 3).Dot(V3(4, 5, 6)), 32);

    EXPECT_EQ(V3(1, 0, 0).Cross(V3(0, 1, 0)), V3(0, 0, 1));
    EXPECT_EQ(V3(0, 0, 1).Cross(V3(1, 0, 0)), V3(0, 1, 0));
    V3 const a(1, 2, 3), b(-4, 5, 2);
    EXPECT_EQ(a.Cross(b), V3(-11, -14, 13));
    EXPECT_EQ(b.Cross(a), -a.Cross(b));
    EXPECT_DOUBLE_EQ(Vector3T<double>(2, -3, 6).Length(), 7.0);
    EXPECT_DOUBLE_EQ(Vector3T<double>(3e200, 0, 4e200).Length(), 5e200); // no overflow in between
}

TEST(BoundingBox, EmptyExtendContains)
{
    using P = Point3T<double>;
    double const big = std::numeric_limits<double>::max();

    BoundingBoxT<double> box;
    EXPECT_TRUE(box.IsEmpty());
    EXPECT_EQ(box.GetMin(), P(big, big, big));
    EXPECT_EQ(box.GetMax(), P(-big, -big, -big));
    EXPECT_FALSE(box.Contains(P(0, 0, 0)));

    box.Extend(P(1, -2, 3));
    EXPECT_FALSE(box.IsEmpty());
    EXPECT_EQ(box.GetMin(), P(1, -2, 3));
    EXPECT_EQ(box.GetMax(), P(1, -2, 3));

    box.Extend(P(-1, 4, 5));
    EXPECT_EQ(box, BoundingBoxT<double>(P(-1, -2, 3), P(1, 4, 5)));
    // Inclusive on every face, exclusive just outside each one.
    EXPECT_TRUE(box.Contains(P(-1, -2, 3)));
    EXPECT_TRUE(box.Contains(P(1, 4, 5)));
    EXPECT_FALSE(box.Contains(P(1.5, 0, 4)));
    EXPECT_FALSE(box.Contains(P(0, -2.5, 4)));
    EXPECT_FALSE(box.Contains(P(0, 0, 5.5)));

    BoundingBoxT<double> const before = box;
    box.Extend(BoundingBoxT<double>());
    EXPECT_EQ(box, before);
    BoundingBoxT<double> empty;
    empty.Extend(BoundingBoxT<double>());
    EXPECT_EQ(empty, BoundingBoxT<double>());

    box.Extend(BoundingBoxT<double>(P(0, 0, 0), P(2, 2, 2)));
    EXPECT_EQ(box, BoundingBoxT<double>(P(-1, -2, 0), P(2, 4, 5)));
}
