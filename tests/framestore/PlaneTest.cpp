#include "framestore/Plane.h"

#include "basis/AlignedMemory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>

using namespace FrameStore;

namespace {

E_DataType const PixelTypes[] = {DT_BYTE, DT_RGB, DT_DOUBLE, DT_FLOAT, DT_INT, DT_UINT, DT_WORD};

bool IsZeroed(I_PlaneBase const & plane)
{
    auto const * bytes = static_cast<unsigned char const *>(plane.GetData());
    return std::all_of(bytes, bytes + plane.GetByteCount(), [](unsigned char b) { return b == 0; });
}

bool IsAligned(void const * memory)
{
    return reinterpret_cast<std::uintptr_t>(memory) % Basis::MemoryAlignment == 0;
}

template <class T>
bool IsTyped(I_PlaneBase const & plane)
{
    return dynamic_cast<I_Plane<T> const *>(&plane) != nullptr && IsOfType<T>(plane);
}

bool HasInterfaceOfItsType(I_PlaneBase const & plane)
{
    switch (plane.GetDataType()) {
    case DT_BYTE: return IsTyped<std::uint8_t>(plane);
    case DT_RGB: return dynamic_cast<I_PlaneRGB const *>(&plane) != nullptr && !IsTyped<std::uint32_t>(plane);
    case DT_DOUBLE: return IsTyped<double>(plane);
    case DT_FLOAT: return IsTyped<float>(plane);
    case DT_INT: return IsTyped<std::int32_t>(plane) && !IsTyped<std::uint32_t>(plane);
    case DT_UINT: return IsTyped<std::uint32_t>(plane);
    case DT_WORD: return IsTyped<std::uint16_t>(plane);
    case DT_UNKNOWN: break;
    }
    return false;
}

} // namespace

TEST(Plane, CreateGivesZeroedAlignedPlaneOfEveryType)
{
    for (E_DataType type : PixelTypes) {
        SCOPED_TRACE(GetDataTypeName(type));
        std::unique_ptr<I_PlaneBase> plane(CreatePlane(type, 5, 3));
        ASSERT_NE(plane, nullptr);
        EXPECT_EQ(plane->GetDataType(), type);
        EXPECT_TRUE(plane->GetWidth() == 5 && plane->GetHeight() == 3);
        EXPECT_EQ(plane->GetByteCount(), 15 * GetDataTypeSize(type));
        ASSERT_NE(plane->GetData(), nullptr);
        EXPECT_TRUE(IsAligned(plane->GetData()));
        EXPECT_TRUE(IsZeroed(*plane));
        EXPECT_TRUE(HasInterfaceOfItsType(*plane));
    }
    EXPECT_EQ(CreatePlane(DT_UNKNOWN, 5, 3), nullptr);
    EXPECT_EQ(CreatePlane(E_DataType(99), 5, 3), nullptr);
    EXPECT_EQ(CreatePlaneOnMemory(DT_FLOAT, 5, 3, nullptr), nullptr);
}

TEST(Plane, MemoryChangesOwnerWithoutCopying)
{
    std::unique_ptr<I_PlaneBase> plane(CreatePlane(DT_WORD, 4, 2));
    auto * pixels = static_cast<I_Plane<std::uint16_t> &>(*plane).GetTypedData();
    pixels[7] = 4321;
    void * released = plane->ReleaseMemory();
    EXPECT_EQ(released, pixels);
    EXPECT_EQ(plane->GetData(), nullptr);
    EXPECT_TRUE(plane->GetWidth() == 0 && plane->GetHeight() == 0 && plane->GetByteCount() == 0);
    EXPECT_EQ(static_cast<std::uint16_t *>(released)[7], 4321);
    // The new owner frees it; the plane must not free it again when destroyed.
    Basis::FreeAligned(released);

    float * block = Basis::AllocateElements<float>(6);
    block[5] = 5.5f;
    std::unique_ptr<I_PlaneBase> adopting(CreatePlaneOnMemory(DT_FLOAT, 3, 2, block));
    ASSERT_NE(adopting, nullptr);
    EXPECT_EQ(adopting->GetData(), block);
    EXPECT_EQ(adopting->GetByteCount(), 6 * sizeof(float));
    ASSERT_NE(dynamic_cast<I_Plane<float> *>(adopting.get()), nullptr);
    EXPECT_EQ(dynamic_cast<I_Plane<float> &>(*adopting).GetTypedData()[5], 5.5f); // not zeroed
}

TEST(Plane, CloneIsDeepAndResizeZeroes)
{
    std::unique_ptr<I_PlaneBase> plane(CreatePlane(DT_RGB, 3, 3));
    auto & rgb = dynamic_cast<I_PlaneRGB &>(*plane);
    rgb.GetPixels()[4] = 0x00FF8040u;
    std::unique_ptr<I_PlaneBase> copy = plane->Clone();
    auto * copyRgb = dynamic_cast<I_PlaneRGB *>(copy.get());
    ASSERT_NE(copyRgb, nullptr);
    EXPECT_NE(copy->GetData(), plane->GetData());
    EXPECT_TRUE(copy->GetWidth() == 3 && copy->GetHeight() == 3);
    rgb.GetPixels()[4] = 1;
    EXPECT_EQ(copyRgb->GetPixels()[4], 0x00FF8040u);

    plane->Resize(7, 2);
    EXPECT_TRUE(plane->GetWidth() == 7 && plane->GetHeight() == 2);
    EXPECT_EQ(plane->GetByteCount(), 7u * 2u * 4u);
    EXPECT_TRUE(IsAligned(plane->GetData()));
    EXPECT_TRUE(IsZeroed(*plane));
}
