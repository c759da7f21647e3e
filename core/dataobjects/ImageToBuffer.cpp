#include "dataobjects/ImageToBuffer.h"

#include "basis/AlignedMemory.h"
#include "basis/Throw.h"
#include "dataobjects/BufferLibDataAccess.h"
#include "dataobjects/LinearScale.h"
#include "dataobjects/Mask.h"
#include "framestore/Buffer.h"
#include "framestore/Frame.h"
#include "framestore/Plane.h"
#include "framestore/TypedScalarFrame.h"

#include <cstring>

namespace DataObjects {

namespace {

//! A new depth-1 frame on the block, which it takes over; the block is released on failure.
FrameStore::I_FrameImage * FrameOnMemory(FrameStore::E_DataType type, Math::Size2T<unsigned int> const & size,
                                         void * block)
{
    FrameStore::I_FrameImage * frame = FrameStore::CreateImageFrameWithPlaneMemory(type, size.width, size.height, block);
    if (!frame) {
        Basis::FreeAligned(block);
        BASIS_THROW(Basis::VerificationFailed, "Invalid data type for image frame.");
    }
    return frame;
}

template <class T>
FrameStore::I_FrameImage * FrameFromPlane(ImageData<T> const & plane, void * block)
{
    return FrameOnMemory(FrameStore::GetDataType<T>(), plane.GetSize(), block);
}

template <class T>
FrameStore::I_FrameImage * FrameFromImage(Image<T> const & image, void * block, bool withMask)
{
    std::unique_ptr<FrameStore::I_FrameImage> frame(FrameFromPlane(image.GetImageData(), block));
    // A mask not yet made is all valid, as the new mask component already is.
    if (withMask && image.HasMask())
        Private::CopyMaskToFrame(image.GetMask(), *frame, 0);
    else if (withMask)
        frame->CreateMaskComponent({});
    Private::CopyScalesAndAttributesToFrame(image, LinearScale(), *frame);
    Private::CopyScalarFieldsToFrame(image.GetScalarFields(), *frame, 0);
    return frame.release();
}

//! Plane z of the named typed scalar, made with T when absent, checked against the plane.
template <class T>
void CopyPlaneToTypedScalar(ImageData<T> const & plane, FrameStore::I_Frame & frame, std::string const & name,
                            unsigned int z)
{
    if (z >= frame.GetDepth())
        BASIS_THROW(Basis::VerificationFailed, "Invalid plane index");
    if (plane.GetWidth() != frame.GetWidth() || plane.GetHeight() != frame.GetHeight())
        BASIS_THROW(Basis::VerificationFailed, "Size of scalar field and frame size must be equal!");
    FrameStore::I_Component * component = FrameStore::CreateTypedScalarInFrame(&frame, name, FrameStore::GetDataType<T>());
    std::memcpy(component->GetPlane(z)->GetData(), plane.GetRawPointer(), Math::ElementCount(plane.GetSize()) * sizeof(T));
}

} // namespace

FrameStore::I_FrameImage * CreateFrameFromImageData(ImageDataVariant const & plane)
{
    return Private::SwitchPixelType(plane, "CreateFrameFromImageDataT(...)", [](auto const & typed) {
        return FrameFromPlane(typed, Private::CopyPlaneMemory(typed));
    });
}

FrameStore::I_FrameImage * CreateFrameFromImageData(ImageDataVariant && plane)
{
    return Private::SwitchPixelType(plane, "CreateFrameFromImageDataT(...)",
                                    [](auto & typed) { return FrameFromPlane(typed, Private::TakePlaneMemory(typed)); });
}

FrameStore::I_FrameImage * CreateFrameFromImage(ImageVariant const & image, bool withMask)
{
    return Private::SwitchPixelType(image, "CreateFrameFromImageT(...)", [withMask](auto const & typed) {
        return FrameFromImage(typed, Private::CopyPlaneMemory(typed.GetImageData()), withMask);
    });
}

FrameStore::I_FrameImage * CreateFrameFromImage(ImageVariant && image, bool withMask)
{
    return Private::SwitchPixelType(image, "CreateFrameFromImageT(...)", [withMask](auto & typed) {
        // A plane that others still hold stays with them.
        bool const sole = typed.GetTypedImageDataSPtr().use_count() <= 2;
        void * const block = sole ? Private::TakePlaneMemory(typed.GetImageData())
                                  : Private::CopyPlaneMemory(typed.GetImageData());
        return FrameFromImage(typed, block, withMask);
    });
}

std::unique_ptr<FrameStore::I_Buffer> CreateBufferFromImageData(ImageDataVariant const & plane)
{
    return Private::SwitchPixelType(plane, "CreateBufferFromImageDataT(...)", [](auto const & typed) {
        return Private::CreateBufferWithFrame(CreateFrameFromImageData(typed));
    });
}

std::unique_ptr<FrameStore::I_Buffer> CreateBufferFromImageData(ImageDataVariant && plane)
{
    return Private::SwitchPixelType(plane, "CreateBufferFromImageDataT(...)", [](auto & typed) {
        return Private::CreateBufferWithFrame(CreateFrameFromImageData(std::move(typed)));
    });
}

std::unique_ptr<FrameStore::I_Buffer> CreateBufferFromImage(ImageVariant const & image, bool withMask)
{
    return Private::SwitchPixelType(image, "CreateBufferFromImageT(...)", [withMask](auto const & typed) {
        return Private::CreateBufferWithFrame(CreateFrameFromImage(typed, withMask));
    });
}

std::unique_ptr<FrameStore::I_Buffer> CreateBufferFromImage(ImageVariant && image, bool withMask)
{
    return Private::SwitchPixelType(image, "CreateBufferFromImageT(...)", [withMask](auto & typed) {
        return Private::CreateBufferWithFrame(CreateFrameFromImage(std::move(typed), withMask));
    });
}

void CopyImageToFrame(ImageVariant const & image, FrameStore::I_FrameImage & frame, unsigned int z)
{
    Private::SwitchPixelType(image, "CopyImageToFrameT(...)", [&](auto const & typed) {
        using T = typename std::remove_reference_t<decltype(typed)>::value_type;
        FrameStore::I_Component * pixels = frame.GetComponent(FrameStore::I_FrameImage::COMPONENT_PIXEL);
        FrameStore::I_PlaneBase * plane = pixels ? pixels->GetPlane(z) : nullptr;
        if (!plane)
            BASIS_THROW(Basis::VerificationFailed, "Invalid destination plane.");
        if (plane->GetWidth() != typed.GetWidth() || plane->GetHeight() != typed.GetHeight())
            BASIS_THROW(Basis::VerificationFailed, "Size of image and image plane must be equal.");
        if (plane->GetDataType() != FrameStore::GetDataType<T>())
            BASIS_THROW(Basis::VerificationFailed, "Date type of image and image plane must be equal.");
        std::memcpy(plane->GetData(), typed.GetImageData().GetRawPointer(), plane->GetByteCount());
    });
}

void CopyImageToTypedScalar(ImageVariant const & image, FrameStore::I_Frame & frame, std::string const & name,
                            unsigned int z)
{
    Private::SwitchPixelType(image, "CopyImageToTypedScalarT(...)", [&](auto const & typed) {
        CopyPlaneToTypedScalar(typed.GetImageData(), frame, name, z);
    });
}

void CopyImageDataToTypedScalar(ImageDataVariant const & plane, FrameStore::I_Frame & frame, std::string const & name,
                                unsigned int z)
{
    Private::SwitchPixelType(plane, "CopyImageDataToTypedScalarT(...)",
                             [&](auto const & typed) { CopyPlaneToTypedScalar(typed, frame, name, z); });
}

} // namespace DataObjects
