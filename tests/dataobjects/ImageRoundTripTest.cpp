#include "dataobjects/ConvertToFloat.h"
#include "dataobjects/ImageFromBuffer.h"
#include "dataobjects/ImageToBuffer.h"

#include "BasisTesting.h"
#include "dataobjects/BufferAttributes.h"
#include "dataobjects/LinearScale.h"
#include "dataobjects/Mask.h"
#include "dataobjects/PixelConversion.h"
#include "dataobjects/ScalarFields.h"
#include "framestore/Buffer.h"
#include "framestore/BufferFile.h"
#include "framestore/Frame.h"
#include "framestore/Plane.h"

#include <QDir>
#include <QTemporaryDir>

#include <cstring>

using namespace DataObjects;
using namespace FrameStore;
using Size = Math::Size2T<unsigned int>;

namespace {

template <class T>
Image<T> Sample()
{
    Image<T> image(Size(5, 4), true);
    T * pixels = image.GetImageData().GetRawPointer();
    for (unsigned int i = 0; i < 20; ++i) {
        pixels[i] = ConvertPixel<T>(37.25 * i - 100.0);
        image.GetMask().SetValid(i % 5, i / 5, i % 3 != 0);
    }
    image.SetScaleX(LinearScale(0.01, -2.5, "mm", "x"));
    image.SetScaleY(LinearScale(0.02, 1.5, "mm", "y"));
    image.SetScaleI(LinearScale(4.0, 0.0, "counts", "intensity"));
    image.GetAttributes().Set("Camera", std::string("left"));
    image.GetAttributes().Set("Exposure", 125.5);
    std::shared_ptr<ScalarField<float>> peak = image.GetScalarFields().Add("peak");
    peak->SetValue(4, 3, 0.75f);
    image.GetScalarFields().Add(GetDataType<T>(), "same");
    return image;
}

template <class T>
void ExpectSame(Image<T> const & expected, ImageVariant const & actualVariant, char const * route)
{
    SCOPED_TRACE(route);
    auto const * actual = dynamic_cast<Image<T> const *>(&actualVariant);
    ASSERT_NE(actual, nullptr);
    ASSERT_EQ(actual->GetSize(), expected.GetSize());
    EXPECT_EQ(std::memcmp(actual->GetImageData().GetRawPointer(), expected.GetImageData().GetRawPointer(),
                          20 * sizeof(T)),
              0);
    for (unsigned int i = 0; i < 20; ++i)
        EXPECT_EQ(actual->GetMask().IsValid(i % 5, i / 5), expected.GetMask().IsValid(i % 5, i / 5)) << i;
    EXPECT_EQ(actual->GetScaleX(), expected.GetScaleX());
    EXPECT_EQ(actual->GetScaleY(), expected.GetScaleY());
    EXPECT_EQ(actual->GetScaleI(), expected.GetScaleI());
    for (C_Attribute const & attribute : expected.GetAttributes().GetAttributes())
        EXPECT_EQ(actual->GetAttributes().GetAttributeValue(attribute.GetName()).ToString(),
                  attribute.GetValue().ToString())
            << attribute.GetName();
    ASSERT_EQ(actual->GetScalarFields().GetNames(), expected.GetScalarFields().GetNames());
    EXPECT_EQ(actual->GetScalarFields().template Get<float>("peak")->GetValue(4, 3), 0.75f);
    EXPECT_EQ(actual->GetScalarFields().Get("same")->GetDataType(), GetDataType<T>());
}

template <class T>
void RoundTrip(QDir const & directory)
{
    Image<T> const image = Sample<T>();
    std::unique_ptr<I_Buffer> buffer = CreateBufferFromImage(image, true);
    ExpectSame(image, *GetImage(*buffer, 0, 0, true), "view");

    QString const path = directory.filePath(QString("image-%1.h5").arg(int(GetDataType<T>())));
    ExportBuffer(buffer.get(), path, {});
    std::unique_ptr<I_Buffer> imported(ImportBuffer(path, {}));
    ExpectSame(image, *GetImage(*imported, 0, 0, true), "file");
    ExpectSame(image, *GetImage(std::move(*buffer), 0, 0, true), "move");
}

template <class... Ts>
void RoundTripAll(QDir const & directory, std::tuple<Ts...>)
{
    (RoundTrip<Ts>(directory), ...);
}

} // namespace

TEST(ImageRoundTrip, EveryPixelTypeThroughFrameFileAndMove)
{
    QTemporaryDir temporary;
    RoundTripAll(QDir(temporary.path()), PixelTypeList());
}

TEST(ConvertToFloat, ConvertsEveryFrameAndResetsTheFrameMask)
{
    std::unique_ptr<I_Buffer> buffer(CreateBuffer());
    for (unsigned int i = 0; i < 3; ++i) {
        I_FrameImage * frame = buffer->CreateFrame(4, 3, 1, DT_WORD);
        auto * pixels = static_cast<std::uint16_t *>(frame->GetComponent(I_FrameImage::COMPONENT_PIXEL)->GetPlane(0)->GetData());
        for (unsigned int p = 0; p < 12; ++p)
            pixels[p] = std::uint16_t(1000 * i + 60000 * (p == 11) + p);
    }
    I_Frame & first = *buffer->GetFrame(0);
    first.CreateMaskComponent({});
    auto * mask = static_cast<unsigned char *>(first.GetComponent(I_Frame::COMPONENT_MASK)->GetPlane(0)->GetData());
    mask[2] = 0;
    first.AddTypedScalar("peak", DT_DOUBLE);
    C_BufferAttributes(first).Set("Camera", std::string("left"));

    std::unique_ptr<ImageBuffer<float>> floats = ConvertToFloat(*buffer);
    ASSERT_EQ(floats->GetListSize(), 3u);
    EXPECT_EQ(floats->GetImageVolume(2).GetVoxel(3, 2, 0), 62011.0f);
    EXPECT_EQ(floats->GetImageVolume(1).GetVoxel(1, 0, 0), 1001.0f);
    EXPECT_EQ(mask[2], 1) << "the new mask is written into the frame";
    EXPECT_TRUE(floats->GetImageVolume(0).IsMaskValid(2, 0, 0));
    EXPECT_TRUE(floats->GetImageVolume(0).GetImage(0).GetScalarFields().Contains("peak"));
    EXPECT_TRUE(floats->GetImageVolume(0).GetAttributes().Contains("Camera"));

    std::unique_ptr<I_Buffer> empty(CreateBuffer());
    EXPECT_BASIS_THROW(ConvertToFloat(*empty), Basis::VerificationFailed, "Empty buffer");
    buffer->AppendFrame(CreateVectorFrame2C(4, 3, 1, 1));
    EXPECT_BASIS_THROW(ConvertToFloat(*buffer), Basis::VerificationFailed, "Frame of buffer is not from type IMAGE");
    std::unique_ptr<I_Buffer> colour(CreateBuffer());
    colour->CreateFrame(2, 2, 1, DT_RGB);
    EXPECT_BASIS_THROW(ConvertToFloat(*colour), Basis::Exception, "RGB image is not supported.");
}
