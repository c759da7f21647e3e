#include "dataobjects/ImageDataFromBuffer.h"

#include "basis/Throw.h"
#include "dataobjects/BufferLibDataAccess.h"
#include "framestore/Buffer.h"
#include "framestore/Frame.h"
#include "framestore/Plane.h"

namespace DataObjects {

namespace {

FrameStore::I_FrameImage & ImageFrameOf(FrameStore::I_Buffer const & buffer, unsigned int frameIndex)
{
    auto * frame = dynamic_cast<FrameStore::I_FrameImage *>(buffer.GetFrame(frameIndex));
    if (!frame)
        BASIS_THROW(Basis::VerificationFailed, "Frame type is not image.");
    return *frame;
}

template <class T>
FrameStore::I_PlaneBase & PixelPlane(FrameStore::I_FrameImage const & frame, unsigned int z)
{
    FrameStore::I_Component const * pixels = frame.GetComponent(FrameStore::I_FrameImage::COMPONENT_PIXEL);
    FrameStore::I_PlaneBase * plane = pixels ? pixels->GetPlane(z) : nullptr;
    if (!plane)
        BASIS_THROW(Basis::VerificationFailed, "Invalid plane-index " << z);
    if (!FrameStore::IsOfType<T>(*plane))
        BASIS_THROW(Basis::VerificationFailed, "Pixel-plane of given frame has not the required type");
    return *plane;
}

//! The typed plane: a view, or with take the plane's memory.
std::unique_ptr<ImageDataVariant> Read(FrameStore::I_FrameImage & frame, unsigned int z, bool take)
{
    return Private::SwitchFrameDataType<std::unique_ptr<ImageDataVariant>>(
        frame.GetDataType(), "FrameStore::DT_RGB not supported yet.", "Input frame has unsupported data type",
        [&](auto tag) -> std::unique_ptr<ImageDataVariant> {
            using T = decltype(tag);
            FrameStore::I_PlaneBase & plane = PixelPlane<T>(frame, z);
            unsigned int const width = plane.GetWidth();
            unsigned int const height = plane.GetHeight();
            void * const memory = take ? plane.ReleaseMemory() : plane.GetData();
            return std::make_unique<ImageData<T>>(static_cast<T *>(memory), width, height, take);
        });
}

} // namespace

std::unique_ptr<ImageDataVariant> GetImageData(FrameStore::I_FrameImage & frame, unsigned int z)
{
    return Read(frame, z, false);
}

std::unique_ptr<ImageDataVariant const> GetImageData(FrameStore::I_FrameImage const & frame, unsigned int z)
{
    return Read(const_cast<FrameStore::I_FrameImage &>(frame), z, false);
}

std::unique_ptr<ImageDataVariant> GetImageData(FrameStore::I_FrameImage && frame, unsigned int z)
{
    return Read(frame, z, true);
}

std::unique_ptr<ImageDataVariant> GetImageData(FrameStore::I_Buffer & buffer, unsigned int frameIndex, unsigned int z)
{
    return Read(ImageFrameOf(buffer, frameIndex), z, false);
}

std::unique_ptr<ImageDataVariant const> GetImageData(FrameStore::I_Buffer const & buffer, unsigned int frameIndex,
                                                     unsigned int z)
{
    return Read(ImageFrameOf(buffer, frameIndex), z, false);
}

std::unique_ptr<ImageDataVariant> GetImageData(FrameStore::I_Buffer && buffer, unsigned int frameIndex, unsigned int z)
{
    return Read(ImageFrameOf(buffer, frameIndex), z, true);
}

} // namespace DataObjects
