#include "dataobjects/ImageMoveToBuffer.h"
#include "dataobjects/ImageToBuffer.h"
#include "dataobjects/ImageVolumeToFrame.h"

#include "BasisTesting.h"
#include "dataobjects/BufferAttributes.h"
#include "dataobjects/ImageBuffer.h"
#include "dataobjects/LinearScale.h"
#include "dataobjects/Mask.h"
#include "dataobjects/ScalarFields.h"
#include "dataobjects/ScaleOnBuffer.h"
#include "framestore/Buffer.h"
#include "framestore/Frame.h"
#include "framestore/Plane.h"

using namespace DataObjects;
using namespace FrameStore;
using FramePtr = std::unique_ptr<I_FrameImage>;
using Size = Math::Size2T<unsigned int>;
using Size3 = Math::Size3T<unsigned int>;

namespace {

I_PlaneBase & Plane(I_Frame const & frame, std::string const & component, unsigned int z)
{
    return *frame.GetComponent(component)->GetPlane(z);
}

} // namespace

TEST(ImageToBuffer, FrameFromImageCarriesEveryPart)
{
    Image<std::uint8_t> image(Size(3, 2), std::uint8_t(9), true);
    image.GetMask().SetValid(2, 1, false);
    image.SetScaleI(LinearScale(0.5, 2, "counts", "intensity"));
    image.GetAttributes().Set("Camera", std::string("left"));
    image.GetScalarFields().Add(DT_WORD, "peak");

    FramePtr bare(CreateFrameFromImage(image, false));
    EXPECT_FALSE(bare->HasMask());
    FramePtr frame(CreateFrameFromImage(image, true));
    EXPECT_EQ(frame->GetDataType(), DT_BYTE);
    EXPECT_EQ(static_cast<std::uint8_t const *>(Plane(*frame, I_FrameImage::COMPONENT_PIXEL, 0).GetData())[5], 9);
    auto const * mask = static_cast<unsigned char const *>(Plane(*frame, I_Frame::COMPONENT_MASK, 0).GetData());
    EXPECT_EQ(mask[4], 1);
    EXPECT_EQ(mask[5], 0);
    EXPECT_EQ(GetScaleFromFrame(*frame, ScaleI), image.GetScaleI());
    EXPECT_EQ(GetScaleFromFrame(*frame, ScaleZ), LinearScale());
    EXPECT_EQ(C_BufferAttributes(*frame).GetAttributeValue("Camera").ToString(), "left");
    EXPECT_EQ(frame->GetComponent("peak")->GetDataType(), DT_WORD);

    // An rvalue image hands its owned block to the frame.
    std::uint8_t * const pixels = image.GetImageData().GetRawPointer();
    FramePtr moved(CreateFrameFromImage(std::move(image), false));
    EXPECT_EQ(Plane(*moved, I_FrameImage::COMPONENT_PIXEL, 0).GetData(), static_cast<void *>(pixels));
}

TEST(ImageToBuffer, ViewedPlanesAreCopiedEvenFromRvalues)
{
    std::vector<float> outside(4, 1.0f);
    ImageData<float> view(outside.data(), 2, 2, false);
    FramePtr frame(CreateFrameFromImageData(std::move(view)));
    EXPECT_NE(Plane(*frame, I_FrameImage::COMPONENT_PIXEL, 0).GetData(), static_cast<void *>(outside.data()));

    ImageData<float> owned(2, 2, 3.0f);
    float * const block = owned.GetRawPointer();
    std::unique_ptr<I_Buffer> buffer = CreateBufferFromImageData(std::move(owned));
    EXPECT_EQ(Plane(*buffer->GetFrame(0), I_FrameImage::COMPONENT_PIXEL, 0).GetData(), static_cast<void *>(block));
}

TEST(ImageToBuffer, CopyImageToFrameChecksPlaneSizeAndType)
{
    Image<float> image(Size(10, 10), 2.5f, true);
    FramePtr words(CreateImageFrame(DT_WORD, 10, 10, 1));
    FramePtr tall(CreateImageFrame(DT_FLOAT, 10, 12, 1));
    FramePtr floats(CreateImageFrame(DT_FLOAT, 10, 10, 2));
    EXPECT_BASIS_THROW(CopyImageToFrame(image, *words, 0), Basis::VerificationFailed,
                       "Date type of image and image plane must be equal.");
    EXPECT_BASIS_THROW(CopyImageToFrame(image, *tall, 0), Basis::VerificationFailed,
                       "Size of image and image plane must be equal.");
    EXPECT_BASIS_THROW(CopyImageToFrame(image, *floats, 2), Basis::VerificationFailed, "Invalid destination plane.");
    image.SetScaleX(LinearScale(7, 0, "", ""));
    CopyImageToFrame(image, *floats, 1);
    EXPECT_EQ(static_cast<float const *>(Plane(*floats, I_FrameImage::COMPONENT_PIXEL, 1).GetData())[99], 2.5f);
    EXPECT_EQ(GetScaleFromFrame(*floats, ScaleX).GetFactor(), 1.0) << "only pixels are copied";
}

TEST(ImageToBuffer, CopyImageVolumeToFrameChecksInOrder)
{
    ImageVolume<std::uint16_t> volume(Size3(4, 3, 2), std::uint16_t(5), true);
    volume.SetMaskValid(1, 1, 1, false);
    FramePtr floats(CreateImageFrame(DT_FLOAT, 4, 3, 2));
    FramePtr wide(CreateImageFrame(DT_WORD, 5, 3, 2));
    FramePtr high(CreateImageFrame(DT_WORD, 4, 4, 2));
    FramePtr deep(CreateImageFrame(DT_WORD, 4, 3, 3));
    EXPECT_BASIS_THROW(CopyImageVolumeToFrame(volume, *floats), Basis::VerificationFailed,
                       "Pixel-plane of given frame has not the required type!");
    EXPECT_BASIS_THROW(CopyImageVolumeToFrame(volume, *wide), Basis::VerificationFailed,
                       "Image volume field and image frame have different width");
    EXPECT_BASIS_THROW(CopyImageVolumeToFrame(volume, *high), Basis::VerificationFailed,
                       "Image volume field and image frame have different height");
    EXPECT_BASIS_THROW(CopyImageVolumeToFrame(volume, *deep), Basis::VerificationFailed,
                       "Image volume field and image frame have different depth");

    FramePtr frame(CreateImageFrame(DT_WORD, 4, 3, 2));
    CopyImageVolumeToFrame(volume, *frame);
    EXPECT_EQ(static_cast<std::uint16_t const *>(Plane(*frame, I_FrameImage::COMPONENT_PIXEL, 1).GetData())[11], 5);
    EXPECT_EQ(static_cast<unsigned char const *>(Plane(*frame, I_Frame::COMPONENT_MASK, 1).GetData())[5], 0);
}

TEST(ImageToBuffer, VolumesAndBuffersBecomeFramesInOrder)
{
    ImageBuffer<double> images(Size3(3, 2, 2), 2, 1.5, true);
    images.GetImageVolume(1).SetScaleZ(LinearScale(3, 0, "mm", "z"));
    images.GetImageVolume(1).GetImage(1).GetScalarFields().Add("u");
    images.GetImageVolume(1).GetImage(0).GetScalarFields().Add("u");
    images.GetGlobalAttributes().Set("Recording", std::string("run 4"));
    std::unique_ptr<I_Buffer> buffer = CreateBufferFromImageBuffer(images, true);
    ASSERT_EQ(buffer->GetFrameCount(), 2u);
    EXPECT_EQ(buffer->GetFrame(1)->GetDepth(), 2u);
    EXPECT_EQ(GetScaleFromFrame(*buffer->GetFrame(1), ScaleZ).GetFactor(), 3.0);
    EXPECT_NE(buffer->GetFrame(1)->GetComponent("u"), nullptr);
    EXPECT_TRUE(C_BufferAttributes(*buffer).Contains("Recording"));

    double * const block = images.GetImageVolume(0).GetImage(1).GetImageData().GetRawPointer();
    std::unique_ptr<I_Buffer> moved = CreateBufferFromImageVolume(std::move(images.GetImageVolume(0)), false);
    EXPECT_EQ(Plane(*moved->GetFrame(0), I_FrameImage::COMPONENT_PIXEL, 1).GetData(), static_cast<void *>(block));
}

TEST(ImageToBuffer, TypedScalarsAndMovedScalarFields)
{
    FramePtr frame(CreateImageFrame(DT_FLOAT, 2, 2, 2));
    Image<std::int32_t> image(Size(2, 2), -3, true);
    CopyImageToTypedScalar(image, *frame, "disparity", 1);
    EXPECT_EQ(frame->GetComponent("disparity")->GetDataType(), DT_INT);
    EXPECT_EQ(static_cast<std::int32_t const *>(Plane(*frame, "disparity", 1).GetData())[3], -3);
    EXPECT_BASIS_THROW(CopyImageDataToTypedScalar(ImageData<float>(2, 3, 0.0f), *frame, "x", 0),
                       Basis::VerificationFailed, "Size of scalar field and frame size must be equal!");

    ScalarFields fields(2, 2);
    fields.Add("peak");
    EXPECT_BASIS_THROW(MoveScalarFieldsToFrame(std::move(fields), *frame), Basis::VerificationFailed,
                       "scalar field planes and frame size z has to be equal!");
    FramePtr colour(CreateImageFrame(DT_RGB, 2, 2, 1));
    EXPECT_BASIS_THROW(MoveScalarFieldsToFrame(std::move(fields), *colour), Basis::Exception,
                       "RGB image is not supported.");
    FramePtr flat(CreateImageFrame(DT_FLOAT, 2, 2, 1));
    fields.Get<float>("peak")->SetValue(1, 1, 0.5f);
    MoveScalarFieldsToFrame(std::move(fields), *flat);
    EXPECT_EQ(static_cast<float const *>(Plane(*flat, "peak", 0).GetData())[3], 0.5f);
    EXPECT_EQ(fields.GetCount(), 0u);

    ImageVolume<float> volume(Size3(2, 2, 2), true);
    volume.GetImage(0).GetScalarFields().Add("w");
    volume.GetImage(1).GetScalarFields().Add("w");
    EXPECT_BASIS_THROW(MoveScalarFieldsFromVolumeToFrame(std::move(volume), *flat), Basis::VerificationFailed,
                       "scalar field planes and frame size z has to be equal!");
    FramePtr other(CreateImageFrame(DT_FLOAT, 3, 2, 2));
    EXPECT_BASIS_THROW(MoveScalarFieldsFromVolumeToFrame(std::move(volume), *other), Basis::VerificationFailed,
                       "Size of volume and frame size must be equal!");
    MoveScalarFieldsFromVolumeToFrame(std::move(volume), *frame);
    EXPECT_NE(frame->GetComponent("w"), nullptr);
}
