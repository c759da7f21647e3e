#pragma once

#include "framestore/Buffer.h"

#include <memory>
#include <string>

namespace FrameStore {
class I_Frame;
class I_FrameImage;
} // namespace FrameStore

namespace DataObjects {

class ImageDataVariant;
class ImageVariant;

// New frames and buffers from images, owned by the caller. A frame from an image carries its
// pixels, x, y and intensity scales (z is the identity), attributes and scalar fields, and with
// withMask its mask as the mask component. The rvalue forms hand an owned pixel block over to
// the frame instead of copying it; the results are the same.
FrameStore::I_FrameImage * CreateFrameFromImageData(ImageDataVariant const & plane);
FrameStore::I_FrameImage * CreateFrameFromImageData(ImageDataVariant && plane);
FrameStore::I_FrameImage * CreateFrameFromImage(ImageVariant const & image, bool withMask);
FrameStore::I_FrameImage * CreateFrameFromImage(ImageVariant && image, bool withMask);
std::unique_ptr<FrameStore::I_Buffer> CreateBufferFromImageData(ImageDataVariant const & plane);
std::unique_ptr<FrameStore::I_Buffer> CreateBufferFromImageData(ImageDataVariant && plane);
std::unique_ptr<FrameStore::I_Buffer> CreateBufferFromImage(ImageVariant const & image, bool withMask);
std::unique_ptr<FrameStore::I_Buffer> CreateBufferFromImage(ImageVariant && image, bool withMask);

//! Copies the pixels, and nothing else, into plane z of the frame, which must have the image's
//! size and pixel type.
void CopyImageToFrame(ImageVariant const & image, FrameStore::I_FrameImage & frame, unsigned int z);

// Copies the pixels into plane z of the frame's typed scalar of that name, made with the pixel
// type when the frame has none.
void CopyImageToTypedScalar(ImageVariant const & image, FrameStore::I_Frame & frame, std::string const & name,
                            unsigned int z);
void CopyImageDataToTypedScalar(ImageDataVariant const & plane, FrameStore::I_Frame & frame, std::string const & name,
                                unsigned int z);

} // namespace DataObjects
