#include "dataobjects/Mask.h"
#include "dataobjects/MaskFromBuffer.h"

#include "BasisTesting.h"
#include "framestore/Buffer.h"
#include "framestore/BufferFile.h"
#include "framestore/Frame.h"
#include "framestore/Plane.h"

#include <QDir>
#include <QTemporaryDir>

#include <cmath>
#include <limits>
#include <memory>

using namespace DataObjects;

namespace {

std::unique_ptr<FrameStore::I_FrameImage> FrameWithMask(unsigned int width, unsigned int height, unsigned int depth)
{
    std::unique_ptr<FrameStore::I_FrameImage> frame(
        FrameStore::CreateImageFrame(FrameStore::DT_WORD, width, height, depth));
    frame->CreateMaskComponent({});
    return frame;
}

FrameStore::I_PlaneBase & MaskPlane(FrameStore::I_Frame const & frame, unsigned int z)
{
    return *frame.GetComponent(FrameStore::I_Frame::COMPONENT_MASK)->GetPlane(z);
}

Mask Checkerboard(unsigned int width, unsigned int height)
{
    Mask mask(width, height);
    for (unsigned int y = 0; y < height; ++y)
        for (unsigned int x = 0; x < width; ++x)
            mask.SetValid(x, y, (x + y) % 2 == 0);
    return mask;
}

} // namespace

TEST(Mask, CopiesOwnAndMovesLeaveTheSourceEmpty)
{
    std::unique_ptr<FrameStore::I_FrameImage> frame = FrameWithMask(3, 2, 1);
    Mask view = GetMask(*frame, 0);
    Mask copy(view);
    EXPECT_TRUE(copy.HasOwnerShip());
    EXPECT_NE(copy.GetRawPointer(), view.GetRawPointer());

    bool * const pixels = copy.GetRawPointer();
    Mask moved(std::move(copy));
    EXPECT_EQ(moved.GetRawPointer(), pixels);
    EXPECT_TRUE(moved.HasOwnerShip());
    EXPECT_EQ(copy.GetRawPointer(), nullptr);
    EXPECT_EQ(copy.GetSize(), Math::Size2T<unsigned int>());
    EXPECT_FALSE(copy.HasOwnerShip());
}

TEST(Mask, CopyAssignmentWritesTheViewedFrameAndNeverReshapes)
{
    std::unique_ptr<FrameStore::I_FrameImage> frame = FrameWithMask(4, 3, 1);
    Mask view = GetMask(*frame, 0);
    view = Checkerboard(4, 3);
    auto const * bytes = static_cast<unsigned char const *>(MaskPlane(*frame, 0).GetData());
    EXPECT_EQ(bytes[0], 1);
    EXPECT_EQ(bytes[1], 0);

    Mask other(5, 3, true);
    EXPECT_BASIS_THROW(view = other, Basis::VerificationFailed, "Source and destination have different sizes.");
    EXPECT_BASIS_THROW(view.DeepCopyFrom(other), Basis::VerificationFailed,
                       "Source and destination have different sizes.");
    EXPECT_EQ(view.GetWidth(), 4u);
    EXPECT_EQ(bytes[1], 0);
}

TEST(Mask, MoveIntoAViewWritesOnEqualSizeAndDetachesOtherwise)
{
    std::unique_ptr<FrameStore::I_FrameImage> small = FrameWithMask(10, 10, 1);
    Mask smallView = GetMask(*small, 0);
    Mask source(10, 10, false);
    smallView = std::move(source);
    EXPECT_FALSE(smallView.HasOwnerShip());
    EXPECT_EQ(static_cast<void *>(smallView.GetRawPointer()), MaskPlane(*small, 0).GetData());
    EXPECT_EQ(static_cast<unsigned char const *>(MaskPlane(*small, 0).GetData())[55], 0);
    EXPECT_NE(source.GetRawPointer(), nullptr) << "an equal-size move into a view copies";

    std::unique_ptr<FrameStore::I_FrameImage> large = FrameWithMask(20, 20, 1);
    Mask largeView = GetMask(*large, 0);
    largeView.MoveFrom(Mask(10, 10, false));
    EXPECT_TRUE(largeView.HasOwnerShip());
    EXPECT_EQ(largeView.GetWidth(), 10u);
    EXPECT_NE(static_cast<void *>(largeView.GetRawPointer()), MaskPlane(*large, 0).GetData());
    EXPECT_EQ(static_cast<unsigned char const *>(MaskPlane(*large, 0).GetData())[0], 1);
}

TEST(Mask, AssignReadsNonZeroAsValid)
{
    ImageData<float> floats(4, 1);
    floats(0, 0) = 0.0f;
    floats(1, 0) = -0.0f;
    floats(2, 0) = 1.5f;
    floats(3, 0) = std::numeric_limits<float>::quiet_NaN();
    Mask mask(4, 1, true);
    mask.Assign(floats);
    EXPECT_FALSE(mask.IsValid(0, 0));
    EXPECT_FALSE(mask.IsValid(1, 0));
    EXPECT_TRUE(mask.IsValid(2, 0));
    EXPECT_TRUE(mask.IsValid(3, 0));

    mask.Assign(ImageData<bool>(4, 1, false));
    EXPECT_FALSE(mask.IsValid(2, 0));
    EXPECT_BASIS_THROW(mask.Assign(ImageData<std::uint16_t>(4, 2, 1)), Basis::VerificationFailed,
                       "Source and destination have different sizes.");
    EXPECT_FALSE(mask.IsValid(2, 0));
}

TEST(Mask, CombinationOperators)
{
    Mask a = Checkerboard(3, 3);
    Mask b(3, 3, true);
    b.SetValid(0, 0, false);

    Mask both(a);
    both &= b;
    Mask either(a);
    either |= b;
    Mask one(a);
    one ^= b;
    for (unsigned int y = 0; y < 3; ++y) {
        for (unsigned int x = 0; x < 3; ++x) {
            EXPECT_EQ(both.IsValid(x, y), a.IsValid(x, y) && b.IsValid(x, y));
            EXPECT_EQ(either.IsValid(x, y), a.IsValid(x, y) || b.IsValid(x, y));
            EXPECT_EQ(one.IsValid(x, y), a.IsValid(x, y) != b.IsValid(x, y));
        }
    }

    a ^= a;
    for (bool const & valid : a)
        EXPECT_FALSE(valid);
    EXPECT_BASIS_THROW(a &= Mask(3, 4, true), Basis::VerificationFailed, "Other mask has wrong size.");
    EXPECT_BASIS_THROW(a |= Mask(4, 3, true), Basis::VerificationFailed, "Other mask has wrong size.");
}

TEST(Mask, AnyNonZeroFrameByteCountsAsValid)
{
    std::unique_ptr<FrameStore::I_FrameImage> frame = FrameWithMask(2, 1, 1);
    auto * bytes = static_cast<unsigned char *>(MaskPlane(*frame, 0).GetData());
    bytes[0] = 255;
    bytes[1] = 2;
    Mask view = GetMask(*frame, 0);
    EXPECT_TRUE(view.IsValid(0, 0));
    Mask other(2, 1, true);
    other.SetValid(1, 0, false);
    view &= other;
    EXPECT_EQ(bytes[0], 1);
    EXPECT_EQ(bytes[1], 0);
}

TEST(MaskFromBuffer, PlaneReferenceIsViewedAndRvaluePlaneIsTakenOver)
{
    std::unique_ptr<FrameStore::I_PlaneBase> plane(FrameStore::CreatePlane(FrameStore::DT_BYTE, 5, 4));
    void * const memory = plane->GetData();
    Mask view = GetMask(*plane);
    EXPECT_EQ(static_cast<void *>(view.GetRawPointer()), memory);
    EXPECT_FALSE(view.HasOwnerShip());
    view.SetValid(4, 3, true);
    EXPECT_EQ(static_cast<unsigned char const *>(memory)[19], 1);

    Mask owner = GetMask(std::move(*plane));
    EXPECT_EQ(static_cast<void *>(owner.GetRawPointer()), memory);
    EXPECT_TRUE(owner.HasOwnerShip());
    EXPECT_EQ(owner.GetSize(), Math::Size2T<unsigned int>(5, 4));
    EXPECT_EQ(plane->GetData(), nullptr);

    std::unique_ptr<FrameStore::I_PlaneBase> words(FrameStore::CreatePlane(FrameStore::DT_WORD, 5, 4));
    EXPECT_BASIS_THROW(GetMask(*words), Basis::VerificationFailed, "plane type cannot be mapped onto a bool array");
    EXPECT_BASIS_THROW(GetMask(std::move(*words)), Basis::VerificationFailed,
                       "plane type cannot be mapped onto a bool array");
    EXPECT_NE(words->GetData(), nullptr);
}

TEST(MaskFromBuffer, FrameMaskIsViewedPerPlaneWithChecksInOrder)
{
    std::unique_ptr<FrameStore::I_FrameImage> frame = FrameWithMask(3, 2, 2);
    Mask second = GetMask(*frame, 1);
    EXPECT_EQ(static_cast<void *>(second.GetRawPointer()), MaskPlane(*frame, 1).GetData());
    second.SetValid(2, 1, false);
    EXPECT_EQ(static_cast<unsigned char const *>(MaskPlane(*frame, 1).GetData())[5], 0);
    EXPECT_TRUE(GetMask(*frame, 0).IsValid(2, 1));

    std::unique_ptr<FrameStore::I_FrameImage> bare(FrameStore::CreateImageFrame(FrameStore::DT_WORD, 3, 2, 1));
    EXPECT_BASIS_THROW(GetMask(*bare, 1), Basis::VerificationFailed, "Z is out of range");
    EXPECT_BASIS_THROW(GetMask(*bare, 0), Basis::VerificationFailed, "Frame has no mask");
}

TEST(MaskFromBuffer, GetOrCreateAndMoveOrCreate)
{
    std::unique_ptr<FrameStore::I_FrameImage> bare(FrameStore::CreateImageFrame(FrameStore::DT_FLOAT, 3, 2, 1));
    // Without a mask the plane index is not looked at.
    Mask created = Private::GetOrCreateMask(*bare, 7, false);
    EXPECT_TRUE(created.HasOwnerShip());
    EXPECT_EQ(created.GetSize(), Math::Size2T<unsigned int>(3, 2));
    for (bool const & valid : created)
        EXPECT_TRUE(valid);
    EXPECT_FALSE(bare->HasMask());
    EXPECT_BASIS_THROW(Private::GetOrCreateMask(*bare, 0, true), Basis::VerificationFailed,
                       "Frame requires a mask, but has no mask.");
    EXPECT_BASIS_THROW(Private::MoveOrCreateMask(std::move(*bare), 0, true), Basis::VerificationFailed,
                       "Frame requires a mask, but has no mask.");

    std::unique_ptr<FrameStore::I_FrameImage> frame = FrameWithMask(3, 2, 2);
    EXPECT_BASIS_THROW(Private::GetOrCreateMask(*frame, 2, false), Basis::VerificationFailed, "Z is out of range");
    Mask view = Private::GetOrCreateMask(*frame, 1, true);
    EXPECT_FALSE(view.HasOwnerShip());
    EXPECT_EQ(static_cast<void *>(view.GetRawPointer()), MaskPlane(*frame, 1).GetData());

    void * const memory = MaskPlane(*frame, 1).GetData();
    Mask taken = Private::MoveOrCreateMask(std::move(*frame), 1, true);
    EXPECT_TRUE(taken.HasOwnerShip());
    EXPECT_EQ(static_cast<void *>(taken.GetRawPointer()), memory);
    EXPECT_EQ(MaskPlane(*frame, 1).GetData(), nullptr);
    EXPECT_NE(MaskPlane(*frame, 0).GetData(), nullptr);
}

TEST(MaskFromBuffer, ExportedMaskReadsBackThroughTheFrame)
{
    QTemporaryDir directory;
    QString const path = QDir(directory.path()).filePath("mask.h5");
    Mask const mask = Checkerboard(7, 5);
    ExportMask(mask, path);

    std::unique_ptr<FrameStore::I_Buffer> buffer(FrameStore::ImportBuffer(path, {}));
    ASSERT_EQ(buffer->GetFrameCount(), 1u);
    Mask const read = GetMask(*buffer->GetFrame(0), 0);
    ASSERT_EQ(read.GetSize(), mask.GetSize());
    for (unsigned int y = 0; y < 5; ++y)
        for (unsigned int x = 0; x < 7; ++x)
            EXPECT_EQ(read.IsValid(x, y), mask.IsValid(x, y)) << x << ',' << y;
}
