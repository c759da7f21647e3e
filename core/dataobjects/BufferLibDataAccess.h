#pragma once

#include "dataobjects/Image.h"
#include "dataobjects/TypeSwitch.h"
#include "framestore/DataType.h"

#include <memory>

namespace FrameStore {
class I_Buffer;
class I_Frame;
class I_FrameImage;
class I_PlaneBase;
} // namespace FrameStore

namespace DataObjects {
class LinearScale;
class Mask;
class ScalarFields;
} // namespace DataObjects

namespace DataObjects::Private {

//! Plane z of the frame's pixels, checked to exist ("Z-Plane for given frame not valid") and to
//! hold T ("Pixel-plane of given frame has not the required type").
template <class T>
FrameStore::I_PlaneBase & GetPixelPlane(FrameStore::I_FrameImage const & frame, unsigned int z);

//! Plane z as an image that lives in the frame: pixels, scales, attributes, mask and scalar
//! fields are the frame's. Without a frame mask and without maskRequired the image gets an
//! all-valid mask of its own, made on first use.
template <class T>
std::unique_ptr<Image<T>> GetImageViewOfFrame(FrameStore::I_FrameImage & frame, unsigned int z, bool maskRequired);

//! Plane z as a self-contained image: pixel, mask and scalar-field memory taken from the frame,
//! scales and attributes copied.
template <class T>
std::unique_ptr<Image<T>> GetImageMovedFromFrame(FrameStore::I_FrameImage && frame, unsigned int z, bool maskRequired);

// A block of the shared aligned allocator holding the plane's pixels, for a new frame plane: a
// copy, or the plane's own block when it owns one (the plane is then left without pixels).
template <class T>
void * CopyPlaneMemory(ImageData<T> const & plane);
template <class T>
void * TakePlaneMemory(ImageData<T> & plane);

//! Copies the mask, as 0 and 1, into mask plane z of the frame, which first gets an all-valid
//! mask component when it has none.
void CopyMaskToFrame(Mask const & mask, FrameStore::I_Frame & frame, unsigned int z);
//! The frame's x, y and intensity scales become the image's, its z scale scaleZ; its attributes
//! are emptied and receive the image's.
void CopyScalesAndAttributesToFrame(ImageVariant const & image, LinearScale const & scaleZ,
                                    FrameStore::I_Frame & frame);
//! The scalar fields of frame plane z become a copy of fields.
void CopyScalarFieldsToFrame(ScalarFields const & fields, FrameStore::I_Frame & frame, unsigned int z);

//! A new buffer holding the frame, which it takes over.
std::unique_ptr<FrameStore::I_Buffer> CreateBufferWithFrame(FrameStore::I_FrameImage * frame);

//! Raises Basis::Exception with the message; the failure of a frame of a type images cannot have.
[[noreturn]] void ThrowUnsupportedFrameType(char const * message);

//! Calls typedFunction(T()) for the pixel type of type and returns its result; DT_RGB raises the
//! first message, any other type outside the six the second.
template <class Result, class Function>
Result SwitchFrameDataType(FrameStore::E_DataType type, char const * rgbMessage, char const * unknownMessage,
                           Function && typedFunction)
{
    if (type == FrameStore::DT_RGB)
        ThrowUnsupportedFrameType(rgbMessage);
    Result result;
    if (!SwitchDataType(type, [&](auto tag) { result = typedFunction(tag); }))
        ThrowUnsupportedFrameType(unknownMessage);
    return result;
}

#define DATAOBJECTS_DECLARE_FRAME_ACCESS(T)                                                                     \
    extern template FrameStore::I_PlaneBase & GetPixelPlane<T>(FrameStore::I_FrameImage const &, unsigned int); \
    extern template std::unique_ptr<Image<T>> GetImageViewOfFrame<T>(FrameStore::I_FrameImage &, unsigned int,  \
                                                                     bool);                                     \
    extern template std::unique_ptr<Image<T>> GetImageMovedFromFrame<T>(FrameStore::I_FrameImage &&,            \
                                                                        unsigned int, bool);                    \
    extern template void * CopyPlaneMemory<T>(ImageData<T> const &);                                           \
    extern template void * TakePlaneMemory<T>(ImageData<T> &);
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_DECLARE_FRAME_ACCESS)
#undef DATAOBJECTS_DECLARE_FRAME_ACCESS

} // namespace DataObjects::Private
