#include "dataobjects/ImageBuffer.h"
#include "dataobjects/ImageTypeConversion.h"

#include "BasisTesting.h"
#include "dataobjects/Mask.h"
#include "dataobjects/PixelConversion.h"
#include "dataobjects/ScalarFields.h"

#include <cmath>
#include <limits>
#include <tuple>

using namespace DataObjects;
using Size = Math::Size2T<unsigned int>;
using Size3 = Math::Size3T<unsigned int>;

namespace {

// Values that probe saturation, truncation and NaN for every pair.
std::vector<double> const Sentinels = {0.0, 1.9, -5.0, 300.7, 70000.5, 3e9, 5e9,
                                       std::numeric_limits<double>::quiet_NaN()};

template <class T>
void FillSentinels(ImageData<T> & plane)
{
    for (std::size_t i = 0; i < Sentinels.size(); ++i)
        plane.GetRawPointer()[i] = ConvertPixel<T>(Sentinels[i]);
}

template <class T, class U>
void ExpectConverted(ImageData<T> const & target, ImageData<U> const & source)
{
    for (std::size_t i = 0; i < Sentinels.size(); ++i) {
        T const expected = ConvertPixel<T>(source.GetRawPointer()[i]);
        T const actual = target.GetRawPointer()[i];
        if constexpr (std::is_floating_point_v<T>)
            if (std::isnan(expected)) {
                EXPECT_TRUE(std::isnan(actual));
                continue;
            }
        EXPECT_EQ(actual, expected) << typeid(U).name() << " -> " << typeid(T).name() << " at " << i;
    }
}

template <class T, class U>
void CheckPair()
{
    Size3 const size(unsigned(Sentinels.size()), 1, 2);
    ImageBuffer<U> source(size, 1, true);
    for (unsigned int z = 0; z < 2; ++z)
        FillSentinels(source.GetImageVolume(0).GetImage(z).GetImageData());
    source.GetImageVolume(0).GetImage(0).GetScalarFields().Add("f");
    source.GetImageVolume(0).GetImage(1).GetScalarFields().Add("f");
    ImageData<U> const & plane = source.GetImageVolume(0).GetImage(1).GetImageData();

    ImageData<T> data(Size(size.width, 1));
    data.Assign(static_cast<ImageDataVariant const &>(plane));
    ExpectConverted(data, plane);

    Image<T> image(Size(size.width, 1));
    image.Assign(static_cast<ImageVariant const &>(source.GetImageVolume(0).GetImage(1)));
    ExpectConverted(image.GetImageData(), plane);

    ImageVolume<T> volume(size, false);
    volume.Assign(static_cast<ImageVolumeVariant const &>(source.GetImageVolume(0)));
    ExpectConverted(volume.GetImage(1).GetImageData(), plane);

    ImageBuffer<T> buffer(size, 1, false);
    buffer.Assign(static_cast<ImageBufferVariant const &>(source));
    ExpectConverted(buffer.GetImageVolume(0).GetImage(1).GetImageData(), plane);
    EXPECT_TRUE(buffer.GetImageVolume(0).GetImage(1).GetScalarFields().Contains("f"));

    ScalarField<U> field{ImageData<U>(plane)};
    ScalarField<T> converted(Size(size.width, 1));
    converted.Assign(static_cast<ScalarFieldVariant const &>(field));
    ExpectConverted(converted.GetImageData(), plane);

    std::unique_ptr<Image<T>> copy = CreateImageCopyOfType<T>(source.GetImageVolume(0).GetImage(1));
    ExpectConverted(copy->GetImageData(), plane);
    EXPECT_EQ(GetImageDataType(*copy), FrameStore::GetDataType<T>());
}

template <class T, class... Us>
void CheckTarget(std::tuple<Us...>)
{
    (CheckPair<T, Us>(), ...);
}

template <class... Ts>
void CheckAllPairs(std::tuple<Ts...>)
{
    (CheckTarget<Ts>(PixelTypeList()), ...);
}

} // namespace

TEST(ImageVariant, AssignConvertsAllThirtySixPairsAtEveryLevel)
{
    CheckAllPairs(PixelTypeList());
}

TEST(ImageVariant, ForeignTypesGetTheMessageOfTheirKind)
{
    ImageData<bool> mask(2, 2, true);
    ImageData<float> plane(2, 2);
    EXPECT_BASIS_THROW(plane.Assign(mask), Basis::Exception,
                       "Image type not supported by macro. Function is 'AssignTU(...)'.");
    EXPECT_EQ(GetImageDataType(mask), FrameStore::DT_UNKNOWN);
    EXPECT_EQ(GetImageDataType(plane), FrameStore::DT_FLOAT);

    struct Foreign : ScalarField<float>
    {
        using ScalarField<float>::ScalarField;
    };
    // A class derived from a concrete field still dispatches to its base type.
    ScalarField<double> field(2, 2);
    field.Assign(Foreign(Size(2, 2), 1.5f));
    EXPECT_EQ(field.GetValue(1, 1), 1.5);
}
