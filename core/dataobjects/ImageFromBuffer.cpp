#include "dataobjects/ImageFromBuffer.h"

#include "basis/Throw.h"
#include "dataobjects/BufferLibDataAccess.h"
#include "framestore/Buffer.h"
#include "framestore/Frame.h"

namespace DataObjects {

namespace {

constexpr char const * RgbImage = "RGB image is not supported.";
constexpr char const * UnknownImage = "Image has unsupported data type";

FrameStore::I_FrameImage & ImageFrameOf(FrameStore::I_Buffer const & buffer, unsigned int frameIndex)
{
    auto * frame = dynamic_cast<FrameStore::I_FrameImage *>(buffer.GetFrame(frameIndex));
    if (!frame)
        BASIS_THROW(Basis::VerificationFailed, "Frame type is not an image.");
    return *frame;
}

} // namespace

std::unique_ptr<ImageVariant> GetImage(FrameStore::I_FrameImage & frame, unsigned int z, bool maskRequired)
{
    return Private::SwitchFrameDataType<std::unique_ptr<ImageVariant>>(
        frame.GetDataType(), RgbImage, UnknownImage, [&](auto tag) -> std::unique_ptr<ImageVariant> {
            return Private::GetImageViewOfFrame<decltype(tag)>(frame, z, maskRequired);
        });
}

std::unique_ptr<ImageVariant const> GetImage(FrameStore::I_FrameImage const & frame, unsigned int z)
{
    // The result is read-only, so viewing through a mutable frame changes nothing.
    return GetImage(const_cast<FrameStore::I_FrameImage &>(frame), z, false);
}

std::unique_ptr<ImageVariant> GetImage(FrameStore::I_FrameImage && frame, unsigned int z, bool maskRequired)
{
    return Private::SwitchFrameDataType<std::unique_ptr<ImageVariant>>(
        frame.GetDataType(), RgbImage, UnknownImage, [&](auto tag) -> std::unique_ptr<ImageVariant> {
            return Private::GetImageMovedFromFrame<decltype(tag)>(std::move(frame), z, maskRequired);
        });
}

std::unique_ptr<ImageVariant> GetImage(FrameStore::I_FrameImage * frame, unsigned int z, bool maskRequired)
{
    if (!frame)
        BASIS_THROW(Basis::VerificationFailed, "ImageFrame is NULL");
    return GetImage(*frame, z, maskRequired);
}

std::unique_ptr<ImageVariant> GetImage(FrameStore::I_Buffer & buffer, unsigned int frameIndex, unsigned int z,
                                       bool maskRequired)
{
    return GetImage(ImageFrameOf(buffer, frameIndex), z, maskRequired);
}

std::unique_ptr<ImageVariant const> GetImage(FrameStore::I_Buffer const & buffer, unsigned int frameIndex,
                                             unsigned int z)
{
    return GetImage(static_cast<FrameStore::I_FrameImage const &>(ImageFrameOf(buffer, frameIndex)), z);
}

std::unique_ptr<ImageVariant> GetImage(FrameStore::I_Buffer && buffer, unsigned int frameIndex, unsigned int z,
                                       bool maskRequired)
{
    return GetImage(std::move(ImageFrameOf(buffer, frameIndex)), z, maskRequired);
}

std::unique_ptr<ImageVariant> GetImage(FrameStore::I_Buffer * buffer, unsigned int frameIndex, unsigned int z,
                                       bool maskRequired)
{
    if (!buffer)
        BASIS_THROW(Basis::VerificationFailed, "Buffer is NULL");
    return GetImage(*buffer, frameIndex, z, maskRequired);
}

std::unique_ptr<ImageVariant> AttachMaskAndGetImage(FrameStore::I_FrameImage * frame, unsigned int z)
{
    if (!frame)
        BASIS_THROW(Basis::VerificationFailed, "ImageFrame is NULL");
    frame->CreateMaskComponent({});
    return GetImage(frame, z, true);
}

} // namespace DataObjects
