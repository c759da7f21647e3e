#include "basis/AlignedMemory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <new>
#include <vector>

using namespace Basis;

namespace {
bool IsAligned(void const * p) { return reinterpret_cast<std::uintptr_t>(p) % MemoryAlignment == 0; }
constexpr std::size_t Max = std::numeric_limits<std::size_t>::max();
} // namespace

TEST(AlignedMemory, BlocksAreAligned)
{
    for (std::size_t const bytes : {0, 1, 3, 63, 64, 65, 1000, 4097, (1 << 20) + 1}) {
        SCOPED_TRACE(bytes);
        void * block = AllocateAligned(bytes);
        ASSERT_NE(block, nullptr);
        EXPECT_TRUE(IsAligned(block));
        std::memset(block, 0xA5, bytes);
        FreeAligned(block);
    }
    FreeAligned(nullptr);
    EXPECT_TRUE(IsAligned(MakeAlignedArray<std::uint8_t>(17).get()));
    EXPECT_TRUE(IsAligned(MakeAlignedArray<double>(1001).get()));
}

TEST(AlignedMemory, ByteCountSaturatesAndHugeSizesThrow)
{
    EXPECT_EQ(ByteCount(0, 8), 0u);
    EXPECT_EQ(ByteCount(1001, 8), 8008u);
    // 2^61 - 1 eight-byte elements still fit; 2^61 is one past.
    EXPECT_EQ(ByteCount((std::uint64_t(1) << 61) - 1, 8), Max - 7);
    EXPECT_EQ(ByteCount(std::uint64_t(1) << 61, 8), Max);
    EXPECT_EQ(ByteCount(UINT64_MAX / 2, 8), Max);
    EXPECT_EQ(ByteCount(UINT64_MAX, UINT64_MAX), Max);

    EXPECT_THROW(AllocateElements<double>(UINT64_MAX / 2), std::bad_alloc);
    EXPECT_THROW(MakeAlignedArray<std::uint16_t>(UINT64_MAX), std::bad_alloc);
    // Rounding a size near the limit up to the alignment must not wrap to a small block.
    EXPECT_THROW(AllocateAligned(Max), std::bad_alloc);
    EXPECT_THROW(AllocateAligned(Max - 10), std::bad_alloc);
}

TEST(AlignedMemory, WorksWithStandardContainers)
{
    std::vector<double, AlignedAllocator<double>> values;
    for (int i = 0; i < 1000; ++i) {
        values.push_back(i * 0.5);
        ASSERT_TRUE(IsAligned(values.data())) << "after " << i + 1 << " elements";
    }
    for (int i = 0; i < 1000; ++i)
        ASSERT_EQ(values[i], i * 0.5);
    std::vector<double, AlignedAllocator<double>> const copy(values);
    EXPECT_TRUE(IsAligned(copy.data()));
    EXPECT_EQ(copy, values);
    std::vector<std::uint8_t, AlignedAllocator<std::uint8_t>> const bytes(33, 7);
    EXPECT_TRUE(IsAligned(bytes.data()));
    EXPECT_TRUE(AlignedAllocator<double>() == AlignedAllocator<std::uint8_t>());
}
