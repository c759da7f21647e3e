#include "dataobjects/ImageDataFromBuffer.h"
#include "dataobjects/ImageFromBuffer.h"
#include "dataobjects/ImageVolumeFromFrame.h"

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
#include "framestore/Scale.h"

using namespace DataObjects;
using namespace FrameStore;
using BufferPtr = std::unique_ptr<I_Buffer>;

namespace {

void * PixelPlane(I_Frame const & frame, unsigned int z)
{
    return frame.GetComponent(I_FrameImage::COMPONENT_PIXEL)->GetPlane(z)->GetData();
}

BufferPtr BufferWith(E_DataType type, unsigned int depth = 2)
{
    BufferPtr buffer(CreateBuffer());
    I_FrameImage * frame = buffer->CreateFrame(8, 6, depth, type);
    if (frame)
        frame->AddTypedScalar("peak", DT_FLOAT);
    return buffer;
}

} // namespace

TEST(ImageFromBuffer, AViewIsTheFrame)
{
    BufferPtr buffer = BufferWith(DT_WORD);
    auto & frame = dynamic_cast<I_FrameImage &>(*buffer->GetFrame(0));
    frame.CreateMaskComponent({});
    std::unique_ptr<ImageVariant> image = GetImage(*buffer, 0, 1, true);
    auto & typed = dynamic_cast<Image<std::uint16_t> &>(*image);

    EXPECT_EQ(static_cast<void *>(typed.GetImageData().GetRawPointer()), PixelPlane(frame, 1));
    typed.SetPixel(7, 5, 4321);
    EXPECT_EQ(static_cast<std::uint16_t const *>(PixelPlane(frame, 1))[47], 4321);

    Mask & mask = typed.GetMask();
    EXPECT_EQ(static_cast<void *>(mask.GetRawPointer()),
              frame.GetComponent(I_Frame::COMPONENT_MASK)->GetPlane(1)->GetData());
    image->GetScaleX().SetFactor(0.25);
    EXPECT_EQ(GetScaleFromFrame(frame, ScaleX).GetFactor(), 0.25);
    image->GetAttributes().Set("Camera", std::string("left"));
    EXPECT_NE(frame.FindAttribute("Camera"), nullptr);
    EXPECT_EQ(static_cast<void *>(std::static_pointer_cast<ScalarField<float>>(image->GetScalarFields().Get("peak"))
                                      ->GetImageData()
                                      .GetRawPointer()),
              frame.GetComponent("peak")->GetPlane(1)->GetData());

    std::unique_ptr<ImageDataVariant> plane = GetImageData(frame, 0);
    EXPECT_EQ(static_cast<void *>(dynamic_cast<ImageData<std::uint16_t> &>(*plane).GetRawPointer()),
              PixelPlane(frame, 0));
}

TEST(ImageFromBuffer, AMovedImageTakesTheMemoryAndLeavesTheFrame)
{
    BufferPtr buffer = BufferWith(DT_FLOAT);
    I_Frame & frame = *buffer->GetFrame(0);
    frame.SetScaleX(CreateFrameScale(LinearScale(2.0, 1.0, "mm", "x")));
    void * const pixels = PixelPlane(frame, 1);
    void * const peak = frame.GetComponent("peak")->GetPlane(1)->GetData();

    std::unique_ptr<ImageVariant> image = GetImage(std::move(*buffer), 0, 1, false);
    auto & typed = dynamic_cast<Image<float> &>(*image);
    EXPECT_EQ(static_cast<void *>(typed.GetImageData().GetRawPointer()), pixels);
    EXPECT_TRUE(typed.GetImageData().HasOwnerShip());
    EXPECT_EQ(PixelPlane(frame, 1), nullptr);
    EXPECT_NE(PixelPlane(frame, 0), nullptr);
    EXPECT_EQ(static_cast<void *>(image->GetScalarFields().Get<float>("peak")->GetImageData().GetRawPointer()), peak);
    EXPECT_EQ(image->GetScaleX().GetFactor(), 2.0);
    frame.GetScaleX()->SetFactor(3.0);
    EXPECT_EQ(image->GetScaleX().GetFactor(), 2.0) << "scales are copies";
    EXPECT_FALSE(image->HasMask());

    std::unique_ptr<ImageDataVariant> plane = GetImageData(std::move(*buffer), 0, 0);
    EXPECT_TRUE(plane->HasOwnerShip());
    EXPECT_EQ(PixelPlane(frame, 0), nullptr);
}

TEST(ImageFromBuffer, VolumesAndBuffers)
{
    BufferPtr buffer = BufferWith(DT_INT, 3);
    buffer->CreateFrame(8, 6, 3, DT_INT);
    std::unique_ptr<ImageVolumeVariant> view = GetImageVolume(*buffer, 0);
    EXPECT_EQ(view->GetSize(), Math::Size3T<unsigned int>(8, 6, 3));
    view->SetScaleZ(LinearScale(4, 0, "mm", "z"));
    EXPECT_EQ(GetScaleFromFrame(*buffer->GetFrame(0), ScaleZ).GetFactor(), 4.0);
    EXPECT_EQ(&view->GetImageVariant(2).GetAttributes(), &view->GetAttributes());
    EXPECT_BASIS_THROW(GetImageVolume(*buffer, 0, true), Basis::VerificationFailed,
                       "Frame requires a mask, but has no mask.");

    C_BufferAttributes(*buffer).Set("Recording", std::string("run 4"));
    std::unique_ptr<ImageBufferVariant> images = GetImageBuffer(*buffer, false);
    EXPECT_EQ(images->GetListSize(), 2u);
    EXPECT_TRUE(images->GetGlobalAttributes().Contains("Recording"));
    auto & typed = dynamic_cast<ImageBuffer<std::int32_t> &>(*images);
    EXPECT_EQ(static_cast<void *>(typed.GetImageVolume(1).GetImage(2).GetImageData().GetRawPointer()),
              PixelPlane(*buffer->GetFrame(1), 2));

    std::unique_ptr<ImageBufferVariant> moved = GetImageBuffer(std::move(*buffer), false);
    EXPECT_EQ(PixelPlane(*buffer->GetFrame(1), 2), nullptr);
    EXPECT_TRUE(dynamic_cast<ImageBuffer<std::int32_t> &>(*moved).GetImageVolume(1).GetImage(2).GetImageData()
                    .HasOwnerShip());
}

TEST(ImageFromBuffer, EachReaderRefusesInItsOwnWords)
{
    BufferPtr vectors(CreateBuffer());
    vectors->AppendFrame(CreateVectorFrame2C(4, 4, 1, 1));
    EXPECT_BASIS_THROW(GetImage(*vectors, 0, 0, false), Basis::VerificationFailed, "Frame type is not an image.");
    EXPECT_BASIS_THROW(GetImageData(*vectors, 0, 0), Basis::VerificationFailed, "Frame type is not image.");
    EXPECT_BASIS_THROW(GetImageVolume(*vectors, 0), Basis::VerificationFailed, "Frame type of buffer is not image");
    EXPECT_BASIS_THROW(GetImageVolume(*vectors, 1), Basis::VerificationFailed, "Frame index out of bounds");
    EXPECT_BASIS_THROW(GetImageBuffer(*vectors, false), Basis::VerificationFailed,
                       "Frame of buffer is not from type image!");

    BufferPtr colour = BufferWith(DT_RGB, 1);
    EXPECT_BASIS_THROW(GetImage(*colour, 0, 0, false), Basis::Exception, "RGB image is not supported.");
    EXPECT_BASIS_THROW(GetImageData(*colour, 0, 0), Basis::Exception, "FrameStore::DT_RGB not supported yet.");
    EXPECT_BASIS_THROW(GetImageVolume(*colour, 0), Basis::Exception, "RGB image volume is not supported.");
    EXPECT_BASIS_THROW(GetImageBuffer(*colour, false), Basis::Exception, "RGB ImageBuffer is not supported.");

    BufferPtr bytes = BufferWith(DT_BYTE, 2);
    bytes->AppendFrame(CreateVectorFrame2C(4, 4, 1, 1));
    EXPECT_BASIS_THROW(GetImageBuffer(std::move(*bytes), false), Basis::VerificationFailed,
                       "Frame of buffer is not from type image!");
    EXPECT_NE(PixelPlane(*bytes->GetFrame(0), 0), nullptr) << "a refused buffer keeps its frames";
    EXPECT_BASIS_THROW(GetImage(*bytes, 0, 2, false), Basis::VerificationFailed, "Z-Plane for given frame not valid");
    EXPECT_BASIS_THROW(GetImageData(*bytes, 0, 3), Basis::VerificationFailed, "Invalid plane-index 3");
    EXPECT_BASIS_THROW(GetImage(*bytes, 0, 0, true), Basis::VerificationFailed,
                       "Frame requires a mask, but has no mask.");
    EXPECT_BASIS_THROW(GetImage(std::move(*bytes), 0, 0, true), Basis::VerificationFailed,
                       "Frame requires a mask, but has no mask.");
    EXPECT_NE(PixelPlane(*bytes->GetFrame(0), 0), nullptr) << "the mask is checked before the pixels move";

    EXPECT_BASIS_THROW(GetImage(static_cast<I_FrameImage *>(nullptr), 0, false), Basis::VerificationFailed,
                       "ImageFrame is NULL");
    EXPECT_BASIS_THROW(GetImage(static_cast<I_Buffer *>(nullptr), 0, 0, false), Basis::VerificationFailed,
                       "Buffer is NULL");
    BufferPtr empty(CreateBuffer());
    EXPECT_BASIS_THROW(GetImageBuffer(*empty, false), Basis::VerificationFailed, "Given buffer has no frames");
}

TEST(ImageFromBuffer, AttachMaskMakesTheFrameMask)
{
    BufferPtr buffer = BufferWith(DT_DOUBLE, 1);
    auto * frame = dynamic_cast<I_FrameImage *>(buffer->GetFrame(0));
    std::unique_ptr<ImageVariant> image = AttachMaskAndGetImage(frame, 0);
    ASSERT_TRUE(frame->HasMask());
    image->GetMask().SetValid(3, 2, false);
    EXPECT_EQ(static_cast<unsigned char const *>(frame->GetComponent(I_Frame::COMPONENT_MASK)->GetPlane(0)->GetData())[19],
              0);
    std::unique_ptr<ImageVariant const> constant = GetImage(static_cast<I_FrameImage const &>(*frame), 0);
    EXPECT_FALSE(constant->GetMask().IsValid(3, 2));
}
