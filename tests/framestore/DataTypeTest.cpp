#include "framestore/DataType.h"

#include <gtest/gtest.h>

TEST(DataType, Placeholder) { EXPECT_EQ(FrameStore::GetDataTypeSize(FrameStore::DT_WORD), 2u); }
