#include "dataobjects/ImageBuffer.h"

#include "BasisTesting.h"
#include "dataobjects/ConsecutiveMemoryAttribute.h"
#include "dataobjects/InstantMask.h"
#include "dataobjects/LinearScale.h"
#include "dataobjects/Mask.h"
#include "dataobjects/ScalarFields.h"

#include <vector>

using namespace DataObjects;
using Size = Math::Size2T<unsigned int>;
using Size3 = Math::Size3T<unsigned int>;

namespace {

int CountConsecutiveRecords(C_Attributes const & attributes)
{
    int count = 0;
    for (C_Attribute const & attribute : attributes.GetAttributes())
        count += attribute.GetName().rfind("_ConsecutiveMemory", 0) == 0;
    return count;
}

// Lends a block and notes when it is handed back.
struct LentMemory : I_ImageMemory
{
    LentMemory(std::vector<float> & block, int & releases) : block(block), releases(releases) {}
    void * GetAddress() const override { return block.data(); }
    void Release() override { ++releases; }
    std::vector<float> & block;
    int & releases;
};

} // namespace

TEST(ImageBuffer, SizesAndTheEmptyList)
{
    EXPECT_BASIS_THROW(ImageBuffer<float>(Size3(2, 2, 1), 0, true), Basis::VerificationFailed,
                       "Image volume list is empty");
    std::shared_ptr<ImageBuffer<float>> empty = ImageBuffer<float>::CreateEmptyImageBuffer();
    EXPECT_EQ(empty->GetListSize(), 0u);
    EXPECT_BASIS_THROW(empty->AllVolumesHaveSameSize(), Basis::VerificationFailed, "Image volume list is empty");
    EXPECT_BASIS_THROW(empty->GetImageVolume(0), Basis::OutOfRangeError, "index out of range");

    ImageBuffer<float> buffer(10, 10, 1, 1, 2.0f, true);
    EXPECT_TRUE(buffer.AllVolumesHaveSameSize());
    buffer.AppendImageVolume(Size3(10, 10, 2), 1, true);
    EXPECT_FALSE(buffer.AllVolumesHaveSameSize());

    buffer.AddScalarField("uncertainty", LinearScale(2, 0, "px", "u"));
    EXPECT_EQ(buffer.GetImageVolume(1).GetImage(1).GetScalarFields().Get("uncertainty")->GetScale().GetFactor(), 2.0);
}

TEST(ImageBuffer, ConsecutiveVolumesShareOneBlockRecordedUnderOneName)
{
    std::unique_ptr<ImageBuffer<std::uint16_t>> buffer
        = ImageBuffer<std::uint16_t>::CreateImageBufferOnConsecutiveMemory(Size(4, 3), 3);
    ImageVolume<std::uint16_t> & volume = buffer->GetImageVolume(0);
    EXPECT_EQ(volume.GetImage(1).GetImageData().GetRawPointer(),
              volume.GetImage(0).GetImageData().GetRawPointer() + 12);
    EXPECT_TRUE(buffer->GetGlobalAttributes().Contains("_ConsecutiveMemory0"));
    EXPECT_EQ(CountConsecutiveRecords(buffer->GetGlobalAttributes()), 1);

    buffer->AppendImageVolumeOnConsecutiveMemory(Size(4, 3), 2);
    EXPECT_EQ(CountConsecutiveRecords(buffer->GetGlobalAttributes()), 1);
    EXPECT_EQ(buffer->GetListSize(), 2u);

    // The planes keep their block when every record of it is gone.
    buffer->GetGlobalAttributes().Clear();
    volume.GetAttributes().Clear();
    volume.SetVoxel(3, 2, 2, 77);
    EXPECT_EQ(volume.GetVoxel(3, 2, 2), 77);

    buffer->AppendImageVolumeOnConsecutiveMemory(Size(4, 3), 1);
    EXPECT_EQ(CountConsecutiveRecords(buffer->GetGlobalAttributes()), 0) << "depth 1 needs no sharing";

    ImageBuffer<std::uint16_t> copy(*buffer);
    EXPECT_NE(copy.GetImageVolume(0).GetImage(0).GetImageData().GetRawPointer(),
              volume.GetImage(0).GetImageData().GetRawPointer());
}

TEST(ImageBuffer, VolumesOnOutsideMemory)
{
    std::vector<float> block(2 * 2 * 2, 1.0f);
    int releases = 0;
    {
        ImageBuffer<float> buffer(Size3(2, 2, 1), 1, true);
        buffer.AppendImageVolume(std::make_unique<LentMemory>(block, releases), Size3(2, 2, 2), nullptr);
        buffer.GetImageVolume(1).SetVoxel(1, 1, 1, 5.0f);
        EXPECT_EQ(block[7], 5.0f);
        EXPECT_FALSE(buffer.GetImageVolume(1).GetImage(0).HasMask());

        auto mask = std::make_unique<InstantMask>(2, 2, false);
        EXPECT_BASIS_THROW(buffer.AppendImageVolume(block.data(), Size3(2, 2, 2), std::move(mask)),
                           Basis::VerificationFailed, "One mask strategy serves one plane");
        buffer.AppendImageVolume(block.data() + 4, Size3(2, 2, 1), std::make_unique<InstantMask>(2, 2, false));
        EXPECT_EQ(buffer.GetImageVolume(2).GetVoxel(1, 1, 0), 5.0f);
        EXPECT_EQ(releases, 0);
    }
    EXPECT_EQ(releases, 1) << "the holder goes back once, with the last plane";
}

TEST(ImageBuffer, AssignChecksEverySizeBeforeConverting)
{
    ImageBuffer<float> source(Size3(2, 2, 1), 2, 70000.0f, true);
    source.GetGlobalAttributes().Set("Recording", std::string("run 4"));
    ImageBuffer<std::uint16_t> target(Size3(2, 2, 1), 2, std::uint16_t(1), true);
    target.Assign(source);
    EXPECT_EQ(target.GetImageVolume(1).GetVoxel(1, 1, 0), 65535);
    EXPECT_TRUE(target.GetGlobalAttributes().Contains("Recording"));

    ImageBuffer<std::uint16_t> mismatch(Size3(2, 2, 1), 1, std::uint16_t(1), true);
    mismatch.AppendImageVolume(Size3(2, 3, 1), 1, std::uint16_t(1), true);
    EXPECT_BASIS_THROW(mismatch.Assign(source), Basis::VerificationFailed,
                       "Source and destination have different sizes.");
    EXPECT_EQ(mismatch.GetImageVolume(0).GetVoxel(0, 0, 0), 1) << "the first volume was not converted";
}
