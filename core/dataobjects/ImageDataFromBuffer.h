#pragma once

#include "dataobjects/ImageDataVariant.h"

#include <memory>

namespace FrameStore {
class I_Buffer;
class I_FrameImage;
} // namespace FrameStore

namespace DataObjects {

// Plane z of an image frame as a bare plane of the frame's pixel type, without scales,
// attributes or mask: a view on the frame's memory for a frame by reference, the frame's memory
// taken over for an rvalue frame.
std::unique_ptr<ImageDataVariant> GetImageData(FrameStore::I_FrameImage & frame, unsigned int z);
std::unique_ptr<ImageDataVariant const> GetImageData(FrameStore::I_FrameImage const & frame, unsigned int z);
std::unique_ptr<ImageDataVariant> GetImageData(FrameStore::I_FrameImage && frame, unsigned int z);

// The same for frame frameIndex of a buffer.
std::unique_ptr<ImageDataVariant> GetImageData(FrameStore::I_Buffer & buffer, unsigned int frameIndex, unsigned int z);
std::unique_ptr<ImageDataVariant const> GetImageData(FrameStore::I_Buffer const & buffer, unsigned int frameIndex,
                                                     unsigned int z);
std::unique_ptr<ImageDataVariant> GetImageData(FrameStore::I_Buffer && buffer, unsigned int frameIndex, unsigned int z);

} // namespace DataObjects
