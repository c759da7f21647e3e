#include "framestore/DataType.h"

#include <gtest/gtest.h>

#include <cstdint>

using namespace FrameStore;

// The codes are stored in files, so they never change.
static_assert(DT_UNKNOWN == 0 && DT_BYTE == 1 && DT_RGB == 2 && DT_DOUBLE == 3);
static_assert(DT_FLOAT == 4 && DT_INT == 5 && DT_UINT == 6 && DT_WORD == 7);
static_assert(GetDataType<float>() == DT_FLOAT && GetDataType<std::uint16_t>() == DT_WORD);
static_assert(GetDataType<double>() == DT_DOUBLE && GetDataType<std::uint8_t>() == DT_BYTE);
static_assert(GetDataType<std::int32_t>() == DT_INT && GetDataType<std::uint32_t>() == DT_UINT);

TEST(DataType, ElementTypes)
{
    EXPECT_EQ(GetDataType<float>(), 4u);
    EXPECT_EQ(GetDataType<std::uint16_t>(), 7u);
    EXPECT_EQ(GetDataType<double>(), 3u);
    EXPECT_EQ(GetDataType<std::uint8_t>(), 1u);
    EXPECT_EQ(GetDataType<std::int32_t>(), 5u);
    EXPECT_EQ(GetDataType<std::uint32_t>(), 6u);
}

TEST(DataType, SizesAndNames)
{
    struct Row
    {
        E_DataType type;
        std::uint64_t size;
        char const * name;
    };
    Row const rows[] = {{DT_UNKNOWN, 0, "DT_UNKNOWN"}, {DT_BYTE, 1, "DT_BYTE"}, {DT_RGB, 4, "DT_RGB"},
                        {DT_DOUBLE, 8, "DT_DOUBLE"},   {DT_FLOAT, 4, "DT_FLOAT"}, {DT_INT, 4, "DT_INT"},
                        {DT_UINT, 4, "DT_UINT"},       {DT_WORD, 2, "DT_WORD"}};
    for (Row const & row : rows) {
        EXPECT_EQ(GetDataTypeSize(row.type), row.size) << row.name;
        EXPECT_STREQ(GetDataTypeName(row.type), row.name);
    }
    EXPECT_EQ(GetDataTypeSize(E_DataType(8)), 0u);
    EXPECT_EQ(GetDataTypeSize(E_DataType(0xFFFFFFFFu)), 0u);
}
