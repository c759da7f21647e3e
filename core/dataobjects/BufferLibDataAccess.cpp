#include "dataobjects/BufferLibDataAccess.h"

#include "basis/AlignedMemory.h"
#include "basis/Throw.h"
#include "dataobjects/BufferAttributes.h"
#include "dataobjects/InstantMask.h"
#include "dataobjects/LazyMask.h"
#include "dataobjects/LinearScale.h"
#include "dataobjects/Mask.h"
#include "dataobjects/MaskFromBuffer.h"
#include "dataobjects/ScalarFieldFromFrame.h"
#include "dataobjects/ScalarFieldsOnFrame.h"
#include "dataobjects/ScaleOnBuffer.h"
#include "framestore/Buffer.h"
#include "framestore/Frame.h"
#include "framestore/Plane.h"
#include "framestore/Scale.h"

#include <algorithm>
#include <cstring>

namespace DataObjects::Private {

template <class T>
FrameStore::I_PlaneBase & GetPixelPlane(FrameStore::I_FrameImage const & frame, unsigned int z)
{
    FrameStore::I_Component const * pixels = frame.GetComponent(FrameStore::I_FrameImage::COMPONENT_PIXEL);
    FrameStore::I_PlaneBase * plane = pixels ? pixels->GetPlane(z) : nullptr;
    if (!plane)
        BASIS_THROW(Basis::VerificationFailed, "Z-Plane for given frame not valid");
    if (!FrameStore::IsOfType<T>(*plane))
        BASIS_THROW(Basis::VerificationFailed, "Pixel-plane of given frame has not the required type");
    return *plane;
}

template <class T>
std::unique_ptr<Image<T>> GetImageViewOfFrame(FrameStore::I_FrameImage & frame, unsigned int z, bool maskRequired)
{
    auto fields = std::make_shared<ScalarFieldsOnFrame>(frame, z);
    auto attributes = std::make_shared<C_BufferAttributes>(frame);
    std::shared_ptr<LinearScale> const scaleI = GetScaleOnBufferScale(*frame.GetScaleI());
    std::shared_ptr<LinearScale> const scaleY = GetScaleOnBufferScale(*frame.GetScaleY());
    std::shared_ptr<LinearScale> const scaleX = GetScaleOnBufferScale(*frame.GetScaleX());
    // A frame without a mask gets no eager all-valid mask: reading a large frame stays free.
    std::unique_ptr<MaskStrategy> mask
        = frame.HasMask() || maskRequired
              ? std::unique_ptr<MaskStrategy>(std::make_unique<InstantMask>(GetOrCreateMask(frame, z, maskRequired)))
              : std::make_unique<LazyMask>(frame.GetWidth(), frame.GetHeight(), true);
    Math::Size2T<unsigned int> const size(frame.GetWidth(), frame.GetHeight());
    auto * const pixels = static_cast<T *>(GetPixelPlane<T>(frame, z).GetData());
    return std::make_unique<Image<T>>(pixels, size, std::move(mask), scaleX, scaleY, scaleI, attributes, fields);
}

template <class T>
std::unique_ptr<Image<T>> GetImageMovedFromFrame(FrameStore::I_FrameImage && frame, unsigned int z, bool maskRequired)
{
    FrameStore::I_PlaneBase & plane = GetPixelPlane<T>(frame, z);
    auto const takePixels = [&plane] {
        unsigned int const width = plane.GetWidth();
        unsigned int const height = plane.GetHeight();
        return ImageData<T>(static_cast<T *>(plane.ReleaseMemory()), width, height, true);
    };
    std::unique_ptr<Image<T>> image;
    if (frame.HasMask() || maskRequired) {
        // The mask is checked before the pixels leave the frame.
        Mask mask = MoveOrCreateMask(std::move(frame), z, maskRequired);
        image = std::make_unique<Image<T>>(takePixels(), std::move(mask));
    } else {
        image = std::make_unique<Image<T>>(takePixels());
    }
    image->SetScaleX(GetScaleFromFrame(frame, ScaleX));
    image->SetScaleY(GetScaleFromFrame(frame, ScaleY));
    image->SetScaleI(GetScaleFromFrame(frame, ScaleI));
    MergeAttributes(image->GetAttributes(), C_BufferAttributes(frame), true);
    MoveScalarFieldFromFrame(image->GetScalarFields(), std::move(frame), z);
    return image;
}

template <class T>
void * TakePlaneMemory(ImageData<T> & plane)
{
    if (plane.HasOwnerShip() && plane.GetRawPointer())
        return plane.ReleaseRawPointer();
    return CopyPlaneMemory(plane);
}

template <class T>
void * CopyPlaneMemory(ImageData<T> const & plane)
{
    std::uint64_t const count = Math::ElementCount(plane.GetSize());
    T * const block = Basis::AllocateElements<T>(count);
    std::memcpy(block, plane.GetRawPointer(), count * sizeof(T));
    return block;
}

void CopyMaskToFrame(Mask const & mask, FrameStore::I_Frame & frame, unsigned int z)
{
    FrameStore::I_Component * component = frame.CreateMaskComponent({});
    FrameStore::I_PlaneBase * plane = component ? component->GetPlane(z) : nullptr;
    if (!plane || plane->GetWidth() != mask.GetWidth() || plane->GetHeight() != mask.GetHeight())
        BASIS_THROW(Basis::VerificationFailed, "Size of mask and frame must be equal.");
    auto const * bytes = reinterpret_cast<unsigned char const *>(mask.GetRawPointer());
    std::transform(bytes, bytes + Math::ElementCount(mask.GetSize()), static_cast<unsigned char *>(plane->GetData()),
                   [](unsigned char valid) { return valid != 0; });
}

void CopyScalesAndAttributesToFrame(ImageVariant const & image, LinearScale const & scaleZ,
                                    FrameStore::I_Frame & frame)
{
    frame.SetScaleX(CreateFrameScale(image.GetScaleX()));
    frame.SetScaleY(CreateFrameScale(image.GetScaleY()));
    frame.SetScaleI(CreateFrameScale(image.GetScaleI()));
    frame.SetScaleZ(CreateFrameScale(scaleZ));
    C_BufferAttributes attributes(frame);
    attributes.Clear();
    MergeAttributes(attributes, image.GetAttributes(), true);
}

void CopyScalarFieldsToFrame(ScalarFields const & fields, FrameStore::I_Frame & frame, unsigned int z)
{
    ScalarFieldsOnFrame(frame, z).DeepCopyFrom(fields);
}

std::unique_ptr<FrameStore::I_Buffer> CreateBufferWithFrame(FrameStore::I_FrameImage * frame)
{
    std::unique_ptr<FrameStore::I_Buffer> buffer(FrameStore::CreateBuffer());
    buffer->AppendFrame(frame);
    return buffer;
}

void ThrowUnsupportedFrameType(char const * message)
{
    BASIS_THROW(Basis::Exception, message);
}

#define DATAOBJECTS_INSTANTIATE_FRAME_ACCESS(T)                                                          \
    template FrameStore::I_PlaneBase & GetPixelPlane<T>(FrameStore::I_FrameImage const &, unsigned int); \
    template std::unique_ptr<Image<T>> GetImageViewOfFrame<T>(FrameStore::I_FrameImage &, unsigned int, bool); \
    template std::unique_ptr<Image<T>> GetImageMovedFromFrame<T>(FrameStore::I_FrameImage &&, unsigned int, bool); \
    template void * CopyPlaneMemory<T>(ImageData<T> const &);                                            \
    template void * TakePlaneMemory<T>(ImageData<T> &);
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_INSTANTIATE_FRAME_ACCESS)

} // namespace DataObjects::Private
