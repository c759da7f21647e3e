#include "dataobjects/ImageVolumeToFrame.h"

#include "basis/AlignedMemory.h"
#include "basis/Throw.h"
#include "dataobjects/BufferAttributes.h"
#include "dataobjects/BufferLibDataAccess.h"
#include "dataobjects/ImageBuffer.h"
#include "dataobjects/Mask.h"
#include "framestore/Buffer.h"
#include "framestore/Frame.h"
#include "framestore/Plane.h"

#include <cstring>
#include <vector>

namespace DataObjects {

namespace {

template <class T>
FrameStore::I_FrameImage * FrameFromVolume(ImageVolume<T> const & volume, std::vector<void *> blocks, bool withMask)
{
    std::unique_ptr<FrameStore::I_FrameImage> frame(FrameStore::CreateImageFrameWithPlaneMemory(
        FrameStore::GetDataType<T>(), volume.GetWidth(), volume.GetHeight(), blocks));
    if (!frame) {
        for (void * block : blocks)
            Basis::FreeAligned(block);
        BASIS_THROW(Basis::VerificationFailed, "Invalid data type for image frame.");
    }
    if (withMask)
        frame->CreateMaskComponent({});
    for (unsigned int z = 0; z < volume.GetDepth(); ++z) {
        Image<T> const & plane = volume.GetImage(z);
        if (withMask && plane.HasMask())
            Private::CopyMaskToFrame(plane.GetMask(), *frame, z);
        Private::CopyScalarFieldsToFrame(plane.GetScalarFields(), *frame, z);
    }
    Private::CopyScalesAndAttributesToFrame(volume.GetImage(0), volume.GetScaleZ(), *frame);
    return frame.release();
}

template <class T>
FrameStore::I_FrameImage * CopyVolumeToNewFrame(ImageVolume<T> const & volume, bool withMask)
{
    std::vector<void *> blocks;
    for (unsigned int z = 0; z < volume.GetDepth(); ++z)
        blocks.push_back(Private::CopyPlaneMemory(volume.GetImage(z).GetImageData()));
    return FrameFromVolume(volume, std::move(blocks), withMask);
}

template <class T>
FrameStore::I_FrameImage * MoveVolumeToNewFrame(ImageVolume<T> & volume, bool withMask)
{
    std::vector<void *> blocks;
    for (unsigned int z = 0; z < volume.GetDepth(); ++z) {
        // A plane that others still hold stays with them.
        bool const sole = volume.GetImage(z).GetTypedImageDataSPtr().use_count() <= 2;
        ImageData<T> & plane = volume.GetImage(z).GetImageData();
        blocks.push_back(sole ? Private::TakePlaneMemory(plane) : Private::CopyPlaneMemory(plane));
    }
    return FrameFromVolume(volume, std::move(blocks), withMask);
}

template <class Buffer, class NewFrame>
std::unique_ptr<FrameStore::I_Buffer> BufferFromVolumes(Buffer & typed, NewFrame newFrame)
{
    std::unique_ptr<FrameStore::I_Buffer> buffer(FrameStore::CreateBuffer());
    for (unsigned int i = 0; i < typed.GetListSize(); ++i)
        buffer->AppendFrame(newFrame(typed.GetImageVolume(i)));
    C_BufferAttributes attributes(*buffer);
    for (C_Attribute const & attribute : typed.GetGlobalAttributes().GetAttributes())
        // Records of consecutive blocks belong to the memory of this process.
        if (attribute.GetName().rfind("_ConsecutiveMemory", 0) != 0)
            attributes.Set(attribute);
    return buffer;
}

} // namespace

FrameStore::I_FrameImage * CreateFrameFromImageVolume(ImageVolumeVariant const & volume, bool withMask)
{
    return Private::SwitchPixelType(volume, "CreateFrameFromImageVolumeT(...)", [withMask](auto const & typed) {
        return CopyVolumeToNewFrame(typed, withMask);
    });
}

FrameStore::I_FrameImage * CreateFrameFromImageVolume(ImageVolumeVariant && volume, bool withMask)
{
    return Private::SwitchPixelType(volume, "CreateFrameFromImageVolumeT(...)", [withMask](auto & typed) {
        return MoveVolumeToNewFrame(typed, withMask);
    });
}

std::unique_ptr<FrameStore::I_Buffer> CreateBufferFromImageVolume(ImageVolumeVariant const & volume, bool withMask)
{
    return Private::SwitchPixelType(volume, "CreateBufferFromImageVolumeT(...)", [withMask](auto const & typed) {
        return Private::CreateBufferWithFrame(CopyVolumeToNewFrame(typed, withMask));
    });
}

std::unique_ptr<FrameStore::I_Buffer> CreateBufferFromImageVolume(ImageVolumeVariant && volume, bool withMask)
{
    return Private::SwitchPixelType(volume, "CreateBufferFromImageVolumeT(...)", [withMask](auto & typed) {
        return Private::CreateBufferWithFrame(MoveVolumeToNewFrame(typed, withMask));
    });
}

std::unique_ptr<FrameStore::I_Buffer> CreateBufferFromImageBuffer(ImageBufferVariant const & buffer, bool withMask)
{
    return Private::SwitchPixelType(buffer, "CreateBufferFromImageBufferT(...)", [withMask](auto const & typed) {
        return BufferFromVolumes(typed, [withMask](auto const & volume) { return CopyVolumeToNewFrame(volume, withMask); });
    });
}

std::unique_ptr<FrameStore::I_Buffer> CreateBufferFromImageBuffer(ImageBufferVariant && buffer, bool withMask)
{
    return Private::SwitchPixelType(buffer, "CreateBufferFromImageBufferT(...)", [withMask](auto & typed) {
        return BufferFromVolumes(typed, [withMask](auto & volume) { return MoveVolumeToNewFrame(volume, withMask); });
    });
}

void CopyImageVolumeToFrame(ImageVolumeVariant const & volume, FrameStore::I_FrameImage & frame)
{
    Private::SwitchPixelType(volume, "CopyImageVolumeToFrameT(...)", [&frame](auto const & typed) {
        using T = typename std::remove_reference_t<decltype(typed)>::value_type;
        FrameStore::I_Component * pixels = frame.GetComponent(FrameStore::I_FrameImage::COMPONENT_PIXEL);
        FrameStore::I_PlaneBase * first = pixels ? pixels->GetPlane(0) : nullptr;
        if (!first)
            BASIS_THROW(Basis::VerificationFailed, "Z-Plane for given frame not valid!");
        if (!FrameStore::IsOfType<T>(*first))
            BASIS_THROW(Basis::VerificationFailed, "Pixel-plane of given frame has not the required type!");
        if (typed.GetWidth() != frame.GetWidth())
            BASIS_THROW(Basis::VerificationFailed, "Image volume field and image frame have different width");
        if (typed.GetHeight() != frame.GetHeight())
            BASIS_THROW(Basis::VerificationFailed, "Image volume field and image frame have different height");
        if (typed.GetDepth() != frame.GetDepth())
            BASIS_THROW(Basis::VerificationFailed, "Image volume field and image frame have different depth");
        for (unsigned int z = 0; z < typed.GetDepth(); ++z) {
            Image<T> const & plane = typed.GetImage(z);
            FrameStore::I_PlaneBase * target = pixels->GetPlane(z);
            std::memcpy(target->GetData(), plane.GetImageData().GetRawPointer(), target->GetByteCount());
            if (plane.HasMask())
                Private::CopyMaskToFrame(plane.GetMask(), frame, z);
        }
    });
}

} // namespace DataObjects
