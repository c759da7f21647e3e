#include "dataobjects/ScalarFields.h"

#include "BasisTesting.h"

#include <cmath>
#include <limits>

using namespace DataObjects;
using Size = Math::Size2T<unsigned int>;

TEST(ScalarField, AssignConvertsAcrossTypesAndChecksSize)
{
    ScalarField<float> source(Size(2, 1));
    source.SetValue(0, 0, 70000.7f);
    source.SetValue(1, 0, std::numeric_limits<float>::quiet_NaN());
    ScalarField<std::uint16_t> target(2, 1);
    target.Assign(source);
    EXPECT_EQ(target.GetValue(0, 0), 65535);
    EXPECT_EQ(target.GetValue(1, 0), 0);
    EXPECT_BASIS_THROW(target.Assign(ScalarField<double>(2, 2)), Basis::VerificationFailed,
                       "Source and destination have different sizes.");

    std::unique_ptr<ScalarFieldVariant> copy = target.CreateCopy();
    EXPECT_NE(dynamic_cast<ScalarField<std::uint16_t> *>(copy.get()), nullptr);
    EXPECT_EQ(copy->GetDataType(), FrameStore::DT_WORD);
    EXPECT_NE(&copy->GetImageDataVariant(), &target.GetImageDataVariant());
}

TEST(ScalarFields, AddChecksFirstAndKeepsNamesSorted)
{
    ScalarFields fields(10, 11);
    EXPECT_BASIS_THROW(fields.Add("wrong", ScalarField<float>(10, 10)), Basis::VerificationFailed,
                       "Source scalar field has wrong size.");
    for (int code : {0, 2, 8, int(FrameStore::DT_RGB)})
        EXPECT_BASIS_THROW(fields.Add(FrameStore::E_DataType(code), "x"), Basis::Exception,
                           "Unsupported scalar data type");
    EXPECT_EQ(fields.GetCount(), 0u);

    fields.Add("uncertainty");
    fields.Add(FrameStore::DT_BYTE, "Peak");
    fields.Add(FrameStore::DT_DOUBLE, "correlation");
    EXPECT_EQ(fields.GetNames(), QStringList({"Peak", "correlation", "uncertainty"}));
    EXPECT_EQ(fields.Get("Peak")->GetDataType(), FrameStore::DT_BYTE);
    EXPECT_EQ(fields.Get("uncertainty")->GetSize(), Size(10, 11));

    // Adding under a present name replaces the entry.
    fields.Add(FrameStore::DT_INT, "Peak");
    EXPECT_EQ(fields.GetCount(), 3u);
    EXPECT_EQ(fields.Get("Peak")->GetDataType(), FrameStore::DT_INT);
}

TEST(ScalarFields, CopiedTakenAndSharedFields)
{
    ScalarFields fields(Size(2, 2));
    ScalarField<float> field(Size(2, 2), 1.5f);
    std::shared_ptr<ScalarFieldVariant> copied = fields.Add("copy", field);
    EXPECT_NE(&copied->GetImageDataVariant(), &field.GetImageDataVariant());

    float * const values = field.GetImageData().GetRawPointer();
    std::shared_ptr<ScalarFieldVariant> moved = fields.Add("moved", std::move(field));
    EXPECT_EQ(std::static_pointer_cast<ScalarField<float>>(moved)->GetImageData().GetRawPointer(), values);
    EXPECT_EQ(field.GetImageData().GetRawPointer(), nullptr);

    std::shared_ptr<ScalarField<float>> typed = fields.Get<float>("copy");
    fields.Remove("copy");
    fields.Remove("absent");
    EXPECT_FALSE(fields.Contains("copy"));
    EXPECT_EQ(typed->GetValue(1, 1), 1.5f) << "a removed field stays valid for its holders";

    ScalarFields shallow(fields);
    ScalarFields deep(Size(1, 1));
    deep.DeepCopyFrom(fields);
    EXPECT_EQ(deep.GetSizeOfScalarFields(), Size(2, 2));
    EXPECT_EQ(shallow.Get("moved"), moved);
    EXPECT_NE(deep.Get("moved"), moved);
    fields.Clear();
    EXPECT_EQ(fields.GetCount(), 0u);
    EXPECT_EQ(shallow.GetCount(), 1u);
}

TEST(ScalarFields, LookupFailuresNameTheField)
{
    ScalarFields fields(2, 2);
    fields.Add(FrameStore::DT_WORD, "counts");
    EXPECT_BASIS_THROW(fields.Get("gone"), Basis::VerificationFailed, "Scalar field 'gone' is not existing.");
    EXPECT_BASIS_THROW(fields.Set("gone", ScalarField<float>(2, 2)), Basis::VerificationFailed,
                       "Scalar field 'gone' is not existing.");
    EXPECT_BASIS_THROW(fields.Get<float>("counts"), Basis::VerificationFailed,
                       "Scalar field 'counts' is not of given type");
    ScalarFields const & constant = fields;
    EXPECT_BASIS_THROW(constant.Get<double>("counts"), Basis::VerificationFailed,
                       "Scalar field 'counts' is not of given type");

    fields.Set("counts", ScalarField<float>(Size(2, 2), 7.6f));
    EXPECT_EQ(constant.Get<std::uint16_t>("counts")->GetValue(0, 1), 7);
}
