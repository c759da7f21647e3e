#include "dataobjects/ImageExtraction.h"

#include "BasisTesting.h"
#include "dataobjects/Attributes.h"
#include "dataobjects/ImageVolume.h"
#include "dataobjects/LinearScale.h"
#include "dataobjects/Mask.h"

using namespace DataObjects;
using Size3 = Math::Size3T<unsigned int>;

namespace {

// Voxel (x, y, z) holds 100 z + 10 y + x; the mask is invalid at (1, 2, 1) only.
ImageVolume<std::int32_t> Numbered()
{
    ImageVolume<std::int32_t> volume(Size3(4, 3, 2), true);
    for (unsigned int z = 0; z < 2; ++z)
        for (unsigned int y = 0; y < 3; ++y)
            for (unsigned int x = 0; x < 4; ++x)
                volume.SetVoxel(x, y, z, std::int32_t(100 * z + 10 * y + x));
    volume.SetMaskValid(1, 2, 1, false);
    volume.SetScaleX(LinearScale(2, 0, "mm", "x"));
    volume.SetScaleY(LinearScale(3, 0, "mm", "y"));
    volume.SetScaleZ(LinearScale(5, 0, "mm", "z"));
    volume.GetAttributes().Set("Frame", 4);
    return volume;
}

} // namespace

TEST(ImageExtraction, XYIsAnIndependentCopy)
{
    ImageVolume<std::int32_t> volume = Numbered();
    EXPECT_BASIS_THROW(ExtractXYImage(volume, 2), Basis::OutOfRangeError, "z plane index");
    std::unique_ptr<ImageVariant> plane = ExtractXYImage(volume, 1);
    volume.SetVoxel(3, 2, 1, -1);
    auto & typed = dynamic_cast<Image<std::int32_t> &>(*plane);
    EXPECT_EQ(typed.GetPixel(3, 2), 123);
    EXPECT_FALSE(typed.GetMask().IsValid(1, 2));
    EXPECT_NE(&typed.GetScaleX(), &volume.GetScaleX());
}

TEST(ImageExtraction, XZAndZYCarryPixelsMasksScalesAndAttributes)
{
    ImageVolume<std::int32_t> const volume = Numbered();
    EXPECT_BASIS_THROW(ExtractXZImage(volume, 3), Basis::OutOfRangeError, "y plane index");
    EXPECT_BASIS_THROW(ExtractZYImage(volume, 4), Basis::OutOfRangeError, "x plane index");

    auto xz = ExtractXZImage(volume, 2);
    auto & cut = dynamic_cast<Image<std::int32_t> &>(*xz);
    EXPECT_EQ(cut.GetSize(), Math::Size2T<unsigned int>(4, 2));
    EXPECT_EQ(cut.GetPixel(3, 1), 123);
    EXPECT_FALSE(cut.GetMask().IsValid(1, 1));
    EXPECT_TRUE(cut.GetMask().IsValid(1, 0));
    EXPECT_EQ(cut.GetScaleX().GetFactor(), 2.0);
    EXPECT_EQ(cut.GetScaleY().GetFactor(), 5.0);
    EXPECT_TRUE(cut.GetAttributes().Contains("Frame"));

    auto zy = ExtractZYImage(volume, 1);
    auto & side = dynamic_cast<Image<std::int32_t> &>(*zy);
    EXPECT_EQ(side.GetSize(), Math::Size2T<unsigned int>(2, 3));
    EXPECT_EQ(side.GetPixel(1, 2), 121);
    EXPECT_FALSE(side.GetMask().IsValid(1, 2));
    EXPECT_EQ(side.GetScaleX().GetFactor(), 5.0);
    EXPECT_EQ(side.GetScaleY().GetFactor(), 3.0);
}

TEST(ImageExtraction, LinesFollowTheSegment)
{
    ImageVolume<std::int32_t> const volume = Numbered();
    Image<std::int32_t> const & plane = volume.GetImage(0);
    EXPECT_EQ(GetImageDataLine(plane, {0, 0}, {3, 0}), std::vector<double>({0, 1, 2, 3}));
    EXPECT_EQ(GetImageDataLine(plane, {3, 2}, {1, 0}), std::vector<double>({23, 12, 1}));
    EXPECT_EQ(GetImageDataLine(plane, {2, 1}, {2, 1}), std::vector<double>({12}));
    EXPECT_BASIS_THROW(GetImageDataLine(plane, {0, 0}, {4, 0}), Basis::OutOfRangeError, "index out of range");
}
