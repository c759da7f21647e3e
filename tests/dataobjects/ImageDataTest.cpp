#include "dataobjects/ImageData.h"

#include "BasisTesting.h"

TEST(ImageData, Placeholder) { EXPECT_BASIS_THROW(DataObjects::ImageData<float>(nullptr, 1, 1, false), Basis::VerificationFailed, "data-pointer is null"); }
