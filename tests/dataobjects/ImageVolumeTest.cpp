#include "dataobjects/ImageVolume.h"

#include "BasisTesting.h"
#include "dataobjects/Attributes.h"
#include "dataobjects/LinearScale.h"
#include "dataobjects/Mask.h"
#include "dataobjects/ScalarFields.h"

#include <limits>

using namespace DataObjects;
using Size = Math::Size2T<unsigned int>;
using Size3 = Math::Size3T<unsigned int>;
using Planes = std::vector<std::shared_ptr<Image<float>>>;

namespace {

std::shared_ptr<Image<float>> Plane(unsigned int width = 4, unsigned int height = 3)
{
    return std::make_shared<Image<float>>(Size(width, height), true);
}

} // namespace

TEST(ImageVolume, PlanesShareScalesAndAttributes)
{
    ImageVolume<float> volume(Size3(4, 3, 3), true);
    volume.SetScaleX(LinearScale(0.1, 0.0, "mm", "x"));
    for (unsigned int z = 0; z < 3; ++z) {
        EXPECT_EQ(volume.GetImage(z).GetScaleX().GetFactor(), 0.1);
        EXPECT_EQ(&volume.GetImage(z).GetScaleY(), &volume.GetScaleY());
    }
    volume.GetImage(2).GetAttributes().Set("Camera", 2);
    EXPECT_TRUE(volume.GetAttributes().Contains("Camera"));
    EXPECT_TRUE(volume.IsMaskValid(3, 2, 2));

    EXPECT_TRUE(volume.IsValidPosition(0, 0, 2));
    EXPECT_FALSE(volume.IsValidPosition(4, 0, 0));
    EXPECT_FALSE(volume.IsValidPosition(0, 3, 0));
    EXPECT_FALSE(volume.IsValidPosition(0, 0, 3));
    EXPECT_BASIS_THROW(ImageVolume<float>(Size3(4, 3, 0), true), Basis::VerificationFailed,
                       "ImageVolume must have at least one z-plane");
}

TEST(ImageVolume, PlaneChecksRunInOrder)
{
    auto const scaleZ = std::make_shared<LinearScale>();
    EXPECT_BASIS_THROW(ImageVolume<float>(Planes{}, nullptr), Basis::VerificationFailed,
                       "ImageVolume must have at least one z-plane");
    EXPECT_BASIS_THROW(ImageVolume<float>(Planes{Plane(), nullptr}, nullptr), Basis::VerificationFailed,
                       "Z-scale is NULL");
    EXPECT_BASIS_THROW(ImageVolume<float>(Planes{Plane(), nullptr}, scaleZ), Basis::VerificationFailed,
                       "z-plane is NULL");

    auto const spoiled = [](auto change) {
        auto plane = Plane(5, 3);
        change(*plane);
        return plane;
    };
    EXPECT_BASIS_THROW(ImageVolume<float>(Planes{Plane(), spoiled([](Image<float> & p) {
                                                     p.SetScaleX(LinearScale(2, 0, "", ""));
                                                     p.SetScaleY(LinearScale(2, 0, "", ""));
                                                 })},
                                          scaleZ),
                       Basis::VerificationFailed, "x axis has different scaling.");
    EXPECT_BASIS_THROW(ImageVolume<float>(Planes{Plane(), spoiled([](Image<float> & p) {
                                                     p.SetScaleY(LinearScale(2, 0, "", ""));
                                                     p.SetScaleI(LinearScale(2, 0, "", ""));
                                                 })},
                                          scaleZ),
                       Basis::VerificationFailed, "y axis has different scaling.");
    EXPECT_BASIS_THROW(ImageVolume<float>(Planes{Plane(), spoiled([](Image<float> & p) {
                                                     p.SetScaleI(LinearScale(2, 0, "", ""));
                                                 })},
                                          scaleZ),
                       Basis::VerificationFailed, "intensity has different scaling.");
    EXPECT_BASIS_THROW(ImageVolume<float>(Planes{Plane(), Plane(5, 3)}, scaleZ), Basis::VerificationFailed,
                       "z-planes have different sizes.");
    auto named = Plane();
    named->GetScalarFields().Add("peak");
    EXPECT_BASIS_THROW(ImageVolume<float>(Planes{Plane(), named}, scaleZ), Basis::VerificationFailed,
                       "scalar field names are different.");

    auto first = Plane();
    auto second = Plane();
    second->GetAttributes().Set("second", 1);
    ImageVolume<float> volume(Planes{first, second}, scaleZ);
    EXPECT_EQ(&second->GetScaleX(), &first->GetScaleX());
    EXPECT_EQ(&second->GetAttributes(), &first->GetAttributes());
    EXPECT_EQ(&volume.GetScaleZ(), scaleZ.get());
}

TEST(ImageVolume, CopyIsDeepAndStillShared)
{
    ImageVolume<std::uint16_t> volume(Size3(2, 2, 2), std::uint16_t(9), true);
    ImageVolume<std::uint16_t> copy(volume);
    copy.SetVoxel(1, 1, 1, 4);
    copy.SetScaleX(LinearScale(3, 0, "", ""));
    EXPECT_EQ(volume.GetVoxel(1, 1, 1), 9);
    EXPECT_EQ(volume.GetScaleX().GetFactor(), 1.0);
    EXPECT_EQ(&copy.GetImage(1).GetScaleX(), &copy.GetImage(0).GetScaleX());

    std::vector<Image<std::uint16_t>> images;
    images.emplace_back(Size(2, 2), true);
    images.emplace_back(Size(2, 2), true);
    ImageVolume<std::uint16_t> moved(images, volume.GetImage(0).GetAttributesSPtr(), std::make_shared<LinearScale>());
    EXPECT_EQ(&moved.GetAttributes(), &volume.GetAttributes());
}

TEST(ImageVolume, AssignAcrossTypesAndSizeRefusal)
{
    ImageVolume<double> source(Size3(2, 1, 2), 1e10, true);
    source.SetVoxel(0, 0, 1, std::numeric_limits<double>::quiet_NaN());
    source.SetScaleZ(LinearScale(5, 0, "mm", "z"));
    ImageVolume<std::int32_t> target(Size3(2, 1, 2), 0, true);
    target.Assign(source);
    EXPECT_EQ(target.GetVoxel(1, 0, 0), 2147483647);
    EXPECT_EQ(target.GetVoxel(0, 0, 1), -2147483647 - 1) << "NaN into int32";
    EXPECT_EQ(target.GetScaleZ().GetFactor(), 5.0);

    ImageVolume<std::int32_t> deeper(Size3(2, 1, 3), 7, true);
    EXPECT_BASIS_THROW(deeper.Assign(source), Basis::VerificationFailed,
                       "Source and destination have different sizes.");
    EXPECT_EQ(deeper.GetVoxel(0, 0, 0), 7);
}

TEST(ImageVolume, ArithmeticPerVoxel)
{
    ImageVolume<std::uint16_t> volume(Size3(3, 1, 2), std::uint16_t(10), true);
    ImageVolume<std::uint16_t> divisor(Size3(3, 1, 2), std::uint16_t(4), true);
    divisor.SetVoxel(1, 0, 1, 0);
    volume.SetVoxel(2, 0, 1, 0);
    divisor.SetVoxel(2, 0, 1, 0);
    ImageVolume<std::uint16_t> const ratio = volume / divisor;
    EXPECT_EQ(ratio.GetVoxel(0, 0, 0), 2) << "2.5 rounds to even";
    EXPECT_EQ(ratio.GetVoxel(1, 0, 1), 65535) << "non-zero over zero";
    EXPECT_EQ(ratio.GetVoxel(2, 0, 1), 0) << "zero over zero";
    EXPECT_EQ(volume.GetVoxel(0, 0, 0), 10);

    volume += divisor;
    EXPECT_EQ(volume.GetVoxel(0, 0, 1), 14);
    EXPECT_EQ((volume * 0.5).GetVoxel(0, 0, 1), 7);
    EXPECT_BASIS_THROW(volume += ImageVolume<std::uint16_t>(Size3(3, 1, 1), true), Basis::VerificationFailed,
                       "Source and destination have different sizes.");
}
