#include "dataobjects/ImageData.h"
#include "dataobjects/TypeSwitch.h"

#include "BasisTesting.h"

#include "framestore/DataType.h"

#include <cmath>
#include <limits>
#include <tuple>
#include <vector>

using namespace DataObjects;

namespace {

double const NaN = std::numeric_limits<double>::quiet_NaN();

// A plane type that no type switch knows.
class ForeignPlane : public ImageDataVariant
{
public:
    Math::Size2T<unsigned int> const & GetSize() const override { return m_size; }
    unsigned int GetWidth() const override { return m_size.width; }
    unsigned int GetHeight() const override { return m_size.height; }
    std::unique_ptr<ImageDataVariant> CreateCopy() const override { return std::make_unique<ForeignPlane>(); }
    bool HasOwnerShip() const override { return true; }
    void Assign(ImageDataVariant const &) override {}

private:
    Math::Size2T<unsigned int> m_size{2, 2};
};

template <class T>
std::unique_ptr<ImageDataVariant> PlaneOf(std::vector<double> const & values)
{
    auto plane = std::make_unique<ImageData<T>>(unsigned(values.size()), 1u);
    for (unsigned int i = 0; i < values.size(); ++i)
        (*plane)(i, 0) = T(values[i]);
    return plane;
}

// Planes of every pixel type holding the same small values, which every type represents.
std::vector<std::unique_ptr<ImageDataVariant>> PlanesOfEveryType(std::vector<double> const & values)
{
    std::vector<std::unique_ptr<ImageDataVariant>> planes;
    std::apply([&](auto... sample) { (planes.push_back(PlaneOf<decltype(sample)>(values)), ...); }, PixelTypeList{});
    return planes;
}

std::vector<double> ValuesOf(ImageDataVariant const & plane)
{
    return Private::SwitchPixelType(plane, "test", [](auto const & typed) {
        return std::vector<double>(typed.begin(), typed.end());
    });
}

} // namespace

TEST(ImageDataAssign, EveryPairOfPixelTypesConverts)
{
    std::vector<double> const values{0, 1, 100, 200, 255};
    auto const sources = PlanesOfEveryType(values);
    auto targets = PlanesOfEveryType({9, 9, 9, 9, 9});
    for (auto & target : targets) {
        for (auto const & source : sources) {
            target->Assign(*source);
            EXPECT_EQ(ValuesOf(*target), values);
        }
    }
}

TEST(ImageDataAssign, SaturatesAndTruncates)
{
    ImageData<std::uint32_t> large(1, 1, 4000000000u);
    ImageData<std::int32_t> signedTarget(1, 1, 0);
    signedTarget.Assign(large);
    EXPECT_EQ(signedTarget(0, 0), 2147483647);

    auto const floats = PlaneOf<float>({300.7, -0.5, 254.99, NaN});
    ImageData<std::uint8_t> bytes(4, 1);
    bytes.Assign(*floats);
    EXPECT_EQ(std::vector<std::uint8_t>(bytes.begin(), bytes.end()), (std::vector<std::uint8_t>{255, 0, 254, 0}));

    ImageData<std::int32_t> ints(4, 1);
    ints.Assign(*floats);
    EXPECT_EQ(ints(3, 0), std::numeric_limits<std::int32_t>::min());
}

TEST(ImageDataAssign, RefusesOtherSizesAndUnknownTypesWithoutChangingTheTarget)
{
    ImageData<float> target(2, 2, 8.0f);
    ImageData<double> const wrongSize(2, 3, 1.0);
    EXPECT_BASIS_THROW(target.Assign(wrongSize), Basis::VerificationFailed,
                       "Source and destination have different sizes.");

    ImageData<bool> const mask(2, 2, true);
    EXPECT_BASIS_THROW(target.Assign(mask), Basis::Exception,
                       "Image type not supported by macro. Function is 'AssignTU(...)'.");
    EXPECT_BASIS_THROW(target.Assign(ForeignPlane()), Basis::Exception,
                       "Image type not supported by macro. Function is 'AssignTU(...)'.");
    EXPECT_EQ(std::vector<float>(target.begin(), target.end()), std::vector<float>(4, 8.0f));
}

TEST(ImageDataAssign, MaskPlanesAreValidWhereThePixelIsNotZero)
{
    ImageData<bool> mask(4, 1, false);
    mask.Assign(*PlaneOf<float>({0.0, -0.0, 1.5, NaN}));
    EXPECT_EQ(std::vector<bool>(mask.begin(), mask.end()), (std::vector<bool>{false, false, true, true}));

    ImageData<bool> const other(4, 1, true);
    mask.Assign(other);
    EXPECT_EQ(std::vector<bool>(mask.begin(), mask.end()), std::vector<bool>(4, true));

    EXPECT_BASIS_THROW(mask.Assign(ForeignPlane()), Basis::Exception,
                       "Image type not supported by macro. Function is 'AssignT(...)'.");
}

TEST(TypeSwitch, TriesThePixelTypesInOrderAndNamesTheFunctionWhenNoneMatches)
{
    auto const planes = PlanesOfEveryType({1});
    std::vector<FrameStore::E_DataType> seen;
    for (auto const & plane : planes) {
        seen.push_back(Private::SwitchPixelType(*plane, "GetDataTypeT(...)", [](auto const & typed) {
            return FrameStore::GetDataType<typename std::decay_t<decltype(typed)>::value_type>();
        }));
    }
    EXPECT_EQ(seen, (std::vector<FrameStore::E_DataType>{FrameStore::DT_FLOAT, FrameStore::DT_WORD,
                                                          FrameStore::DT_DOUBLE, FrameStore::DT_BYTE,
                                                          FrameStore::DT_INT, FrameStore::DT_UINT}));

    ForeignPlane foreign;
    ImageDataVariant & erased = foreign;
    int calls = 0;
    EXPECT_BASIS_THROW(Private::SwitchPixelType(erased, "CreateFrameFromImageDataT(...)", [&](auto &) { ++calls; }),
                       Basis::Exception,
                       "Image type not supported by macro. Function is 'CreateFrameFromImageDataT(...)'.");
    EXPECT_EQ(calls, 0);
}
