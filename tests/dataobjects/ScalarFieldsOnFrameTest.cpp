#include "dataobjects/ScalarFieldFromFrame.h"
#include "dataobjects/ScalarFieldsOnFrame.h"

#include "BasisTesting.h"
#include "framestore/Frame.h"
#include "framestore/Plane.h"

using namespace DataObjects;
using Size = Math::Size2T<unsigned int>;

namespace {

std::unique_ptr<FrameStore::I_FrameImage> Frame(unsigned int width, unsigned int height, unsigned int depth)
{
    return std::unique_ptr<FrameStore::I_FrameImage>(
        FrameStore::CreateImageFrame(FrameStore::DT_WORD, width, height, depth));
}

template <class T>
T * ScalarPlane(FrameStore::I_Frame const & frame, std::string const & name, unsigned int z)
{
    return static_cast<T *>(frame.GetComponent(name)->GetPlane(z)->GetData());
}

} // namespace

TEST(ScalarFieldsOnFrame, FieldsViewTheFramesPlanes)
{
    auto frame = Frame(3, 2, 2);
    std::unique_ptr<ScalarFields> fields = GetScalarFields(*frame, 1);
    std::shared_ptr<ScalarField<float>> added = fields->Add("uncertainty");
    ASSERT_NE(frame->GetComponent("uncertainty"), nullptr);
    EXPECT_EQ(added->GetImageData().GetRawPointer(), ScalarPlane<float>(*frame, "uncertainty", 1));
    added->SetValue(2, 1, 0.25f);
    EXPECT_EQ(fields->Get<float>("uncertainty")->GetValue(2, 1), 0.25f);
    EXPECT_EQ(fields->Get<float>("uncertainty")->GetImageData().GetRawPointer(),
              ScalarPlane<float>(*frame, "uncertainty", 1));

    std::unique_ptr<ScalarFieldVariant> single = GetScalarField(*frame, "uncertainty", 0);
    EXPECT_EQ(static_cast<ScalarField<float> &>(*single).GetImageData().GetRawPointer(),
              ScalarPlane<float>(*frame, "uncertainty", 0));

    fields->Add(FrameStore::DT_DOUBLE, "Beta");
    EXPECT_EQ(fields->GetNames(), QStringList({"Beta", "uncertainty"}));
    EXPECT_EQ(fields->GetCount(), 2u);
    EXPECT_EQ(fields->GetMapping().size(), 2u);
    EXPECT_EQ(fields->GetSizeOfScalarFields(), Size(3, 2));
    EXPECT_BASIS_THROW(fields->Get("absent"), Basis::VerificationFailed, "Scalar field 'absent' is not existing.");
}

TEST(ScalarFieldsOnFrame, AddConvertsIntoAnExistingScalarAndChecksTheSizeFirst)
{
    auto frame = Frame(10, 11, 1);
    Private::ScalarFieldsOnFrame fields(*frame, 0);
    unsigned int const components = frame->GetComponentCount();
    EXPECT_BASIS_THROW(fields.Add("field", ScalarField<float>(10, 10)), Basis::VerificationFailed,
                       "Source scalar field has wrong size.");
    EXPECT_EQ(frame->GetComponentCount(), components);
    EXPECT_BASIS_THROW(fields.Add(FrameStore::DT_RGB, "colour"), Basis::Exception, "Unsupported scalar data type");

    fields.Add(FrameStore::DT_WORD, "counts");
    fields.Add("counts", ScalarField<float>(Size(10, 11), 3.7f));
    EXPECT_EQ(frame->GetTypedScalarNames().size(), 1u);
    EXPECT_EQ(frame->GetComponent("counts")->GetDataType(), FrameStore::DT_WORD);
    EXPECT_EQ(ScalarPlane<std::uint16_t>(*frame, "counts", 0)[109], 3);

    fields.Set("fresh", ScalarField<double>(Size(10, 11), 2.5));
    EXPECT_EQ(ScalarPlane<double>(*frame, "fresh", 0)[0], 2.5);
}

TEST(ScalarFieldsOnFrame, RemoveAndClearRefuseMultiPlaneFrames)
{
    auto deep = Frame(2, 2, 2);
    Private::ScalarFieldsOnFrame planeOne(*deep, 1);
    planeOne.Add("a");
    planeOne.Remove("unknown");
    EXPECT_BASIS_THROW(planeOne.Remove("a"), Basis::VerificationFailed,
                       "Removing scalar fields of multi-plane-frames is not supported.");
    EXPECT_BASIS_THROW(planeOne.Clear(), Basis::VerificationFailed,
                       "Clearing scalar fields of multi-plane-frames is not supported.");
    EXPECT_TRUE(planeOne.Contains("a"));
    Private::ScalarFieldsOnFrame beyond(*deep, 2);
    EXPECT_BASIS_THROW(beyond.Add("b"), Basis::VerificationFailed, "Invalid plane index");
    EXPECT_BASIS_THROW(beyond.Get("a"), Basis::VerificationFailed, "Invalid plane index");
    EXPECT_FALSE(deep->GetComponent("b"));

    auto flat = Frame(2, 2, 1);
    Private::ScalarFieldsOnFrame fields(*flat, 0);
    fields.Add("a");
    fields.Add("b");
    fields.Remove("a");
    EXPECT_EQ(flat->GetTypedScalarNames(), std::vector<std::string>({"b"}));
    EXPECT_BASIS_THROW(fields.Remove("Pixel"), Basis::Exception,
                       "Removing scalar field 'Pixel' from frame failed: "
                           + QString::fromLatin1("The component 'Pixel' belongs to the frame's layout and cannot be removed"));
    fields.Clear();
    EXPECT_EQ(fields.GetCount(), 0u);
    EXPECT_NE(flat->GetComponent("Pixel"), nullptr);
}

TEST(ScalarFieldFromFrame, GetScalarFieldChecksInOrder)
{
    auto frame = Frame(2, 2, 1);
    EXPECT_BASIS_THROW(GetScalarField(*frame, "none", 0), Basis::VerificationFailed,
                       "No scalar field of name 'none' found.");
    EXPECT_BASIS_THROW(GetScalarField(*frame, "Pixel", 0), Basis::VerificationFailed,
                       "No scalar field of name 'Pixel' found.");
    frame->AddTypedScalar("colour", FrameStore::DT_RGB);
    EXPECT_BASIS_THROW(GetScalarField(*frame, "colour", 5), Basis::Exception, "RGB scalar field is not supported.");
    frame->AddTypedScalar("peak", FrameStore::DT_INT);
    EXPECT_BASIS_THROW(GetScalarField(*frame, "peak", 1), Basis::VerificationFailed, "Invalid plane index");
    EXPECT_EQ(GetScalarField(*frame, "peak", 0)->GetDataType(), FrameStore::DT_INT);
}

TEST(ScalarFieldFromFrame, MovingTakesThePlanesAndRefusesBeforeTakingAnything)
{
    auto frame = Frame(3, 2, 2);
    frame->AddTypedScalar("peak", FrameStore::DT_INT);
    frame->AddTypedScalar("beta", FrameStore::DT_FLOAT);
    ScalarPlane<std::int32_t>(*frame, "peak", 1)[5] = -4;
    std::int32_t * const memory = ScalarPlane<std::int32_t>(*frame, "peak", 1);

    ScalarFields wrong(3, 3);
    EXPECT_BASIS_THROW(MoveScalarFieldFromFrame(wrong, std::move(*frame), 1), Basis::VerificationFailed,
                       "Source scalar field has wrong size.");
    ScalarFields fields(3, 2);
    EXPECT_BASIS_THROW(MoveScalarFieldFromFrame(fields, std::move(*frame), 2), Basis::VerificationFailed,
                       "Invalid plane index");
    EXPECT_EQ(ScalarPlane<std::int32_t>(*frame, "peak", 1), memory);

    std::unique_ptr<ScalarFields> taken = GetScalarFields(std::move(*frame), 1);
    EXPECT_EQ(taken->GetNames(), QStringList({"beta", "peak"}));
    std::shared_ptr<ScalarField<std::int32_t>> peak = taken->Get<std::int32_t>("peak");
    EXPECT_EQ(peak->GetImageData().GetRawPointer(), memory);
    EXPECT_TRUE(peak->GetImageData().HasOwnerShip());
    EXPECT_EQ(peak->GetValue(2, 1), -4);
    EXPECT_EQ(frame->GetComponent("peak")->GetPlane(1)->GetData(), nullptr);
    EXPECT_NE(frame->GetComponent("peak")->GetPlane(0)->GetData(), nullptr);
}
