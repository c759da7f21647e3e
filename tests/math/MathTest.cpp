#include "math/Math.h"

#include <gtest/gtest.h>

TEST(Size, Placeholder) { EXPECT_EQ(Math::ElementCount(Math::Size2T<unsigned>(3, 4)), 12u); }
