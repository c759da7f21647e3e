#include "dataobjects/MaskVolume.h"
#include "dataobjects/MaskVolumeList.h"

#include "BasisTesting.h"

using namespace DataObjects;
using Size3 = Math::Size3T<unsigned int>;

TEST(MaskVolume, ConstructionAndItsTwoPlaneMessages)
{
    EXPECT_BASIS_THROW(MaskVolume(4, 4, 0), Basis::VerificationFailed, "At least 1 plane required.");
    EXPECT_BASIS_THROW(MaskVolume(std::vector<std::shared_ptr<Mask>>{}), Basis::VerificationFailed,
                       "At least 1 plane required");

    auto first = std::make_shared<Mask>(3, 2, true);
    MaskVolume shared({first, std::make_shared<Mask>(5, 5, false)});
    EXPECT_EQ(shared.GetSize(), Size3(3, 2, 2));
    shared.SetValid(Math::Point3T<int>(1, 1, 0), false);
    EXPECT_FALSE(first->IsValid(1, 1)) << "planes are shared";

    MaskVolume copied(*first);
    MaskVolume taken(Mask(2, 2, true));
    EXPECT_NE(&copied.GetMask(0), first.get());
    EXPECT_EQ(taken.GetSize(), Size3(2, 2, 1));

    MaskVolume deep(shared);
    deep.SetValid(0, 0, 0, false);
    EXPECT_TRUE(first->IsValid(0, 0));
}

TEST(MaskVolume, AssignmentWritesIntoExistingPlanesAfterTheSizeCheck)
{
    auto plane = std::make_shared<Mask>(2, 2, true);
    MaskVolume target({plane});
    MaskVolume source(2, 2, 1);
    source = false;
    target = source;
    EXPECT_EQ(&target.GetMask(0), plane.get());
    EXPECT_FALSE(plane->IsValid(1, 1));

    MaskVolume deeper(2, 2, 2);
    deeper = true;
    EXPECT_BASIS_THROW(target = deeper, Basis::VerificationFailed, "Mask volume has a different size");
    EXPECT_BASIS_THROW(target.DeepCopyFrom(deeper), Basis::VerificationFailed, "Mask volume has a different size");
    EXPECT_BASIS_THROW(target &= deeper, Basis::VerificationFailed, "Size of mask volumes is different");
    EXPECT_FALSE(plane->IsValid(1, 1));

    MaskVolume all(2, 2, 1);
    all = true;
    all &= source;
    EXPECT_FALSE(all.IsValid(0, 1, 0));

    MaskVolume moved(std::move(all));
    EXPECT_EQ(moved.GetDepth(), 1u);
    EXPECT_EQ(all.GetDepth(), 0u);
}

TEST(MaskVolumeList, SizesAndMessages)
{
    EXPECT_BASIS_THROW(MaskVolumeList(2, 2, 1, 0), Basis::VerificationFailed,
                       "List size of mask volumes not allowed to be zero");
    EXPECT_BASIS_THROW(MaskVolumeList(std::vector<MaskVolume>{}), Basis::VerificationFailed,
                       "List size of mask volumes not allowed to be zero");
    EXPECT_BASIS_THROW(MaskVolumeList(std::vector<std::shared_ptr<MaskVolume>>{}), Basis::VerificationFailed,
                       "List size of mask volumes not allowed to be zero");

    MaskVolumeList three(Size3(2, 2, 1), 3);
    MaskVolumeList two(Size3(2, 2, 1), 2);
    EXPECT_EQ(three.GetListSize(), 3u);
    EXPECT_EQ(three.GetVolumeSize(), Size3(2, 2, 1));
    EXPECT_BASIS_THROW(two = three, Basis::VerificationFailed, "Mask volume list have a different size");
    EXPECT_BASIS_THROW(two &= three, Basis::VerificationFailed, "Size of mask volumes is different");
}

TEST(MaskVolumeList, CopyChecksPairByPairWhileCopying)
{
    MaskVolume a(2, 2, 1);
    MaskVolume b(3, 3, 1);
    a = false;
    b = false;
    std::vector<MaskVolume> volumes;
    volumes.push_back(a);
    volumes.push_back(b);
    MaskVolumeList source(std::move(volumes));

    MaskVolumeList target(std::vector<std::shared_ptr<MaskVolume>>{std::make_shared<MaskVolume>(2, 2, 1),
                                                                    std::make_shared<MaskVolume>(2, 2, 1)});
    target = true;
    EXPECT_BASIS_THROW(target = source, Basis::VerificationFailed, "Mask volume list have a different size");
    EXPECT_FALSE(target[0].IsValid(0, 0, 0)) << "the first pair was copied before the mismatch";
    EXPECT_TRUE(target[1].IsValid(0, 0, 0));

    MaskVolumeList copy(source);
    copy = true;
    EXPECT_FALSE(source.GetMaskVolume(1).IsValid(2, 2, 0)) << "copies are deep";
    EXPECT_BASIS_THROW(copy &= MaskVolumeList(Size3(2, 2, 1), 2), Basis::VerificationFailed,
                       "Size of mask volumes is different");
}
