#include "basis/Throw.h"

#include "BasisTesting.h"

TEST(Throw, Placeholder) { EXPECT_BASIS_THROW(BASIS_THROW(Basis::FileError, "x" << 1), Basis::FileError, "x1"); }
