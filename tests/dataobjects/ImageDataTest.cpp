#include "dataobjects/ImageData.h"

#include "basis/AlignedMemory.h"
#include "BasisTesting.h"

#include <cmath>
#include <limits>
#include <numeric>
#include <string>
#include <vector>

using namespace DataObjects;
using Size = Math::Size2T<unsigned int>;

namespace {

// Lends an external block to a plane and records what the plane does with it.
struct LentMemory : I_ImageMemory
{
    LentMemory(void * block, std::vector<std::string> & log) : block(block), log(log) {}
    ~LentMemory() override { log.push_back("destroyed"); }
    void * GetAddress() const override { return block; }
    void Release() override { log.push_back("released"); }

    void * block;
    std::vector<std::string> & log;
};

template <class T>
std::vector<T> Pixels(ImageData<T> const & plane)
{
    return {plane.begin(), plane.end()};
}

ImageData<float> Ramp(unsigned int width, unsigned int height)
{
    ImageData<float> plane(width, height);
    std::iota(plane.begin(), plane.end(), 0.0f);
    return plane;
}

} // namespace

TEST(ImageData, OwningPlanesAllocateAlignedBlocksAndFill)
{
    ImageData<std::uint16_t> plane(Size(5, 3), 7);
    EXPECT_TRUE(plane.HasOwnerShip());
    EXPECT_EQ(plane.GetSize(), Size(5, 3));
    EXPECT_EQ(plane.end() - plane.begin(), 15);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(plane.GetRawPointer()) % Basis::MemoryAlignment, 0u);
    EXPECT_EQ(Pixels(plane), std::vector<std::uint16_t>(15, 7));

    plane = std::uint16_t(9);
    EXPECT_EQ(Pixels(plane), std::vector<std::uint16_t>(15, 9));
}

TEST(ImageData, PixelAccessIsRowMajorWithoutGaps)
{
    ImageData<int> plane(4, 3, 0);
    plane.SetPixel(3, 1, 11);
    plane(1, 2) = 12;
    plane[Math::Point2T<unsigned int>(2, 0)] = 13;
    plane.GetPixel(Math::Point2T<unsigned int>(0, 1)) = 14;
    int const * raw = plane.GetRawPointer();
    EXPECT_EQ(raw[1 * 4 + 3], 11);
    EXPECT_EQ(raw[2 * 4 + 1], 12);
    EXPECT_EQ(raw[0 * 4 + 2], 13);
    EXPECT_EQ(raw[1 * 4 + 0], 14);
    ImageData<int> const & constant = plane;
    EXPECT_EQ(constant.GetPixel(3, 1), 11);
    EXPECT_EQ(constant(1, 2), 12);
    EXPECT_EQ(constant[Math::Point2T<unsigned int>(2, 0)], 13);
}

TEST(ImageData, ViewsWorkOnForeignMemoryAndAdoptedBlocksAreReleased)
{
    std::vector<double> frame(6, 1.0);
    {
        ImageData<double> view(frame.data(), 3, 2, false);
        EXPECT_FALSE(view.HasOwnerShip());
        EXPECT_EQ(view.GetRawPointer(), frame.data());
        view.SetPixel(2, 1, 5.0);
    }
    EXPECT_EQ(frame[5], 5.0); // the view wrote the memory and left it alive

    // An adopted block goes back through the aligned allocator; the sanitizer run checks it.
    auto * block = Basis::AllocateElements<double>(6);
    ImageData<double> owner(block, Size(3, 2), true);
    EXPECT_TRUE(owner.HasOwnerShip());
    EXPECT_EQ(owner.GetRawPointer(), block);

    EXPECT_BASIS_THROW(ImageData<double>(nullptr, Size(3, 2), false), Basis::VerificationFailed,
                       "data-pointer is null");
    EXPECT_BASIS_THROW(ImageData<double>(nullptr, 3, 2, true), Basis::VerificationFailed, "data-pointer is null");
}

TEST(ImageData, MemoryHolderIsReleasedOnceJustBeforeItIsDestroyed)
{
    std::vector<float> block(4, 2.0f);
    std::vector<std::string> log;
    {
        ImageData<float> plane(std::make_unique<LentMemory>(block.data(), log), 2, 2);
        EXPECT_FALSE(plane.HasOwnerShip());
        EXPECT_EQ(plane.GetRawPointer(), block.data());

        // Neither a copy nor a moved-to plane takes the holder along.
        ImageData<float> copy(plane);
        EXPECT_NE(copy.GetRawPointer(), block.data());
        ImageData<float> moved(std::move(plane));
        EXPECT_EQ(moved.GetRawPointer(), block.data());
        EXPECT_EQ(plane.GetRawPointer(), nullptr);
        EXPECT_TRUE(log.empty());
    }
    EXPECT_EQ(log, (std::vector<std::string>{"released", "destroyed"}));

    EXPECT_BASIS_THROW(ImageData<float>(std::unique_ptr<I_ImageMemory>(), 2, 2), Basis::VerificationFailed,
                       "data-pointer is null");
}

TEST(ImageData, CopyConstructionAlwaysOwns)
{
    std::vector<float> frame{1, 2, 3, 4};
    ImageData<float> view(frame.data(), 2, 2, false);
    ImageData<float> copy(view);
    EXPECT_TRUE(copy.HasOwnerShip());
    EXPECT_NE(copy.GetRawPointer(), frame.data());
    EXPECT_EQ(Pixels(copy), frame);
    copy(0, 0) = 9;
    EXPECT_EQ(frame[0], 1);

    std::unique_ptr<ImageDataVariant> variant = view.CreateCopy();
    auto * typed = dynamic_cast<ImageData<float> *>(variant.get());
    ASSERT_NE(typed, nullptr);
    EXPECT_TRUE(typed->HasOwnerShip());
    EXPECT_EQ(Pixels(*typed), frame);
}

TEST(ImageData, MoveConstructionLeavesTheSourceEmpty)
{
    ImageData<float> source = Ramp(3, 2);
    float const * block = source.GetRawPointer();
    ImageData<float> target(std::move(source));
    EXPECT_EQ(target.GetRawPointer(), block);
    EXPECT_TRUE(target.HasOwnerShip());
    EXPECT_EQ(target.GetSize(), Size(3, 2));
    EXPECT_EQ(source.GetRawPointer(), nullptr);
    EXPECT_FALSE(source.HasOwnerShip());
    EXPECT_EQ(source.GetSize(), Size(0, 0));
}

TEST(ImageData, CopyAssignmentNeverReshapes)
{
    ImageData<std::uint8_t> target(10, 11, 3);
    std::uint8_t const * block = target.GetRawPointer();
    ImageData<std::uint8_t> const other(10, 10, 5);
    EXPECT_BASIS_THROW(target = other, Basis::VerificationFailed, "Source and destination have different sizes.");
    EXPECT_EQ(target.GetSize(), Size(10, 11));
    EXPECT_EQ(Pixels(target), std::vector<std::uint8_t>(110, 3));

    ImageData<std::uint8_t> const same(10, 11, 4);
    target = same;
    EXPECT_EQ(target.GetRawPointer(), block);
    EXPECT_EQ(Pixels(target), std::vector<std::uint8_t>(110, 4));

    ImageData<std::uint8_t> & alias = target;
    target = alias;
    EXPECT_EQ(Pixels(target), std::vector<std::uint8_t>(110, 4));
}

TEST(ImageData, MoveAssignmentIntoAnOwnerTakesTheBlock)
{
    ImageData<float> target(7, 7, 0.0f);
    ImageData<float> source = Ramp(2, 3);
    float const * block = source.GetRawPointer();
    target = std::move(source);
    EXPECT_EQ(target.GetRawPointer(), block);
    EXPECT_EQ(target.GetSize(), Size(2, 3));
    EXPECT_TRUE(target.HasOwnerShip());
    EXPECT_EQ(source.GetRawPointer(), nullptr);
    EXPECT_EQ(source.GetSize(), Size(0, 0));

    target.MoveFrom(std::move(target));
    EXPECT_EQ(target.GetRawPointer(), block);
}

TEST(ImageData, MoveAssignmentIntoAViewWritesOrDetaches)
{
    std::vector<float> frame(4, -1.0f);
    ImageData<float> view(frame.data(), 2, 2, false);

    ImageData<float> equal = Ramp(2, 2);
    view = std::move(equal);
    EXPECT_EQ(view.GetRawPointer(), frame.data());
    EXPECT_EQ(frame, (std::vector<float>{0, 1, 2, 3}));
    EXPECT_NE(equal.GetRawPointer(), nullptr); // the source is left as it was
    EXPECT_EQ(Pixels(equal), frame);

    ImageData<float> larger = Ramp(3, 2);
    view.MoveFrom(std::move(larger));
    EXPECT_TRUE(view.HasOwnerShip());
    EXPECT_NE(view.GetRawPointer(), frame.data());
    EXPECT_EQ(view.GetSize(), Size(3, 2));
    EXPECT_EQ(Pixels(view), (std::vector<float>{0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(frame, (std::vector<float>{0, 1, 2, 3})); // the viewed memory is not touched
    EXPECT_EQ(larger.GetSize(), Size(3, 2));
}

TEST(ImageData, ReleaseRawPointerHandsOverOnlyOwnedBlocks)
{
    ImageData<double> owner(3, 3, 1.5);
    double * block = owner.GetRawPointer();
    double * released = owner.ReleaseRawPointer();
    EXPECT_EQ(released, block);
    EXPECT_EQ(owner.GetRawPointer(), nullptr);
    EXPECT_EQ(owner.GetSize(), Size(3, 3));
    EXPECT_TRUE(owner.HasOwnerShip());
    EXPECT_EQ(released[8], 1.5);
    Basis::FreeAligned(released);

    std::vector<double> frame(9);
    ImageData<double> view(frame.data(), 3, 3, false);
    EXPECT_EQ(view.ReleaseRawPointer(), nullptr);
    EXPECT_EQ(view.GetRawPointer(), frame.data());
}
