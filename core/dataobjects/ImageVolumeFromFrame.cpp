#include "dataobjects/ImageVolumeFromFrame.h"

#include "basis/Throw.h"
#include "dataobjects/BufferAttributes.h"
#include "dataobjects/BufferLibDataAccess.h"
#include "dataobjects/ImageBuffer.h"
#include "dataobjects/ScaleOnBuffer.h"
#include "framestore/Buffer.h"
#include "framestore/Frame.h"

namespace DataObjects {

namespace {

template <class T>
std::unique_ptr<ImageVolume<T>> ReadVolume(FrameStore::I_FrameImage & frame, bool take, bool maskRequired)
{
    std::vector<std::shared_ptr<Image<T>>> planes;
    planes.reserve(frame.GetDepth());
    for (unsigned int z = 0; z < frame.GetDepth(); ++z) {
        if (take)
            planes.push_back(Private::GetImageMovedFromFrame<T>(std::move(frame), z, maskRequired));
        else
            planes.push_back(Private::GetImageViewOfFrame<T>(frame, z, maskRequired));
    }
    std::shared_ptr<LinearScale> scaleZ = take ? std::make_shared<LinearScale>(GetScaleFromFrame(frame, ScaleZ))
                                               : std::shared_ptr<LinearScale>(GetScaleOnBufferScale(*frame.GetScaleZ()));
    return std::make_unique<ImageVolume<T>>(planes, std::move(scaleZ));
}

std::unique_ptr<ImageVolumeVariant> Read(FrameStore::I_FrameImage & frame, bool take, bool maskRequired)
{
    return Private::SwitchFrameDataType<std::unique_ptr<ImageVolumeVariant>>(
        frame.GetDataType(), "RGB image volume is not supported.", "Image volume has unsupported data type",
        [&](auto tag) -> std::unique_ptr<ImageVolumeVariant> {
            return ReadVolume<decltype(tag)>(frame, take, maskRequired);
        });
}

FrameStore::I_FrameImage & ImageFrameOf(FrameStore::I_Buffer const & buffer, unsigned int frameIndex)
{
    if (frameIndex >= buffer.GetFrameCount())
        BASIS_THROW(Basis::VerificationFailed, "Frame index out of bounds");
    auto * frame = dynamic_cast<FrameStore::I_FrameImage *>(buffer.GetFrame(frameIndex));
    if (!frame)
        BASIS_THROW(Basis::VerificationFailed, "Frame type of buffer is not image");
    return *frame;
}

FrameStore::I_FrameImage & ImageFrameOfList(FrameStore::I_Buffer const & buffer, unsigned int frameIndex)
{
    auto * frame = dynamic_cast<FrameStore::I_FrameImage *>(buffer.GetFrame(frameIndex));
    if (!frame)
        BASIS_THROW(Basis::VerificationFailed, "Frame of buffer is not from type image!");
    return *frame;
}

std::unique_ptr<ImageBufferVariant> ReadBuffer(FrameStore::I_Buffer & buffer, bool take, bool maskRequired)
{
    if (buffer.GetFrameCount() == 0)
        BASIS_THROW(Basis::VerificationFailed, "Given buffer has no frames");
    return Private::SwitchFrameDataType<std::unique_ptr<ImageBufferVariant>>(
        ImageFrameOfList(buffer, 0).GetDataType(), "RGB ImageBuffer is not supported.",
        "Image volume list has unsupported data type", [&](auto tag) -> std::unique_ptr<ImageBufferVariant> {
            using T = decltype(tag);
            // Every frame is checked before any is read, so a refusal takes nothing from the buffer.
            for (unsigned int i = 0; i < buffer.GetFrameCount(); ++i)
                ImageFrameOfList(buffer, i);
            std::vector<std::unique_ptr<ImageVolume<T>>> volumes;
            for (unsigned int i = 0; i < buffer.GetFrameCount(); ++i)
                volumes.push_back(ReadVolume<T>(ImageFrameOfList(buffer, i), take, maskRequired));
            return std::make_unique<ImageBuffer<T>>(std::move(volumes), C_AttributesContainer(C_BufferAttributes(buffer)));
        });
}

} // namespace

std::unique_ptr<ImageVolumeVariant> GetImageVolume(FrameStore::I_FrameImage & frame, bool maskRequired)
{
    return Read(frame, false, maskRequired);
}

std::unique_ptr<ImageVolumeVariant const> GetImageVolume(FrameStore::I_FrameImage const & frame)
{
    return Read(const_cast<FrameStore::I_FrameImage &>(frame), false, false);
}

std::unique_ptr<ImageVolumeVariant> GetImageVolume(FrameStore::I_FrameImage && frame, bool maskRequired)
{
    return Read(frame, true, maskRequired);
}

std::unique_ptr<ImageVolumeVariant> GetImageVolume(FrameStore::I_Buffer & buffer, unsigned int frameIndex,
                                                   bool maskRequired)
{
    return Read(ImageFrameOf(buffer, frameIndex), false, maskRequired);
}

std::unique_ptr<ImageVolumeVariant const> GetImageVolume(FrameStore::I_Buffer const & buffer, unsigned int frameIndex)
{
    return Read(ImageFrameOf(buffer, frameIndex), false, false);
}

std::unique_ptr<ImageVolumeVariant> GetImageVolume(FrameStore::I_Buffer && buffer, unsigned int frameIndex,
                                                   bool maskRequired)
{
    return Read(ImageFrameOf(buffer, frameIndex), true, maskRequired);
}

std::unique_ptr<ImageBufferVariant const> GetImageBuffer(FrameStore::I_Buffer const & buffer)
{
    return ReadBuffer(const_cast<FrameStore::I_Buffer &>(buffer), false, false);
}

std::unique_ptr<ImageBufferVariant> GetImageBuffer(FrameStore::I_Buffer & buffer, bool maskRequired)
{
    return ReadBuffer(buffer, false, maskRequired);
}

std::unique_ptr<ImageBufferVariant> GetImageBuffer(FrameStore::I_Buffer && buffer, bool maskRequired)
{
    return ReadBuffer(buffer, true, maskRequired);
}

} // namespace DataObjects
