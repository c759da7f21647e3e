#include "dataobjects/ConsecutiveMemory.h"
#include "dataobjects/ImageData.h"

#include "basis/AlignedMemory.h"

#include <gtest/gtest.h>

#include <limits>
#include <new>

using namespace DataObjects;

TEST(ConsecutiveMemory, PlanesFollowEachOtherInOneAlignedBlock)
{
    auto memory = std::make_shared<ConsecutiveMemory<std::uint16_t>>(12, 3);
    EXPECT_EQ(memory->GetElementsPerPlane(), 12u);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(memory->GetData()) % Basis::MemoryAlignment, 0u);
    EXPECT_EQ(memory->GetPlane(0), memory->GetData());
    EXPECT_EQ(memory->GetPlane(2), memory->GetData() + 24);
    EXPECT_EQ(memory->GetAddress(), static_cast<void *>(memory->GetData()));

    // Planes viewing the block write into it.
    ImageData<std::uint16_t> plane1(memory->GetPlane(1), 4, 3, false);
    plane1.Fill(5);
    EXPECT_EQ(memory->GetData()[12], 5);
    EXPECT_EQ(memory->GetData()[23], 5);
}

TEST(ConsecutiveMemory, ServesAsAPlaneMemoryHolder)
{
    auto memory = std::make_unique<ConsecutiveMemory<float>>(6, 1);
    float * block = memory->GetData();
    ImageData<float> plane(std::move(memory), 3, 2);
    EXPECT_EQ(plane.GetRawPointer(), block);
    EXPECT_FALSE(plane.HasOwnerShip());
    plane.Fill(2.5f); // the sanitizer run sees the block alive and released exactly once
    EXPECT_EQ(block[5], 2.5f);
}

TEST(ConsecutiveMemory, AbsurdSizesFailInTheAllocator)
{
    EXPECT_THROW(ConsecutiveMemory<double>(std::numeric_limits<std::uint64_t>::max() / 4, 8), std::bad_alloc);
    EXPECT_THROW(ConsecutiveMemory<double>(std::uint64_t(1) << 62, 1), std::bad_alloc);
}
