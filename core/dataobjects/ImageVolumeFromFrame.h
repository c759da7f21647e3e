#pragma once

#include "dataobjects/ImageBufferVariant.h"
#include "dataobjects/ImageVolumeVariant.h"

#include <memory>

namespace FrameStore {
class I_Buffer;
class I_FrameImage;
} // namespace FrameStore

namespace DataObjects {

// All z-planes of an image frame as one volume, the planes built as GetImage builds them (a view
// for a frame by reference, self-contained for an rvalue), sharing one attribute set and one z
// scale. With maskRequired a frame without mask fails.
std::unique_ptr<ImageVolumeVariant> GetImageVolume(FrameStore::I_FrameImage & frame, bool maskRequired = false);
std::unique_ptr<ImageVolumeVariant const> GetImageVolume(FrameStore::I_FrameImage const & frame);
std::unique_ptr<ImageVolumeVariant> GetImageVolume(FrameStore::I_FrameImage && frame, bool maskRequired = false);

// The same for frame frameIndex of a buffer.
std::unique_ptr<ImageVolumeVariant> GetImageVolume(FrameStore::I_Buffer & buffer, unsigned int frameIndex,
                                                   bool maskRequired = false);
std::unique_ptr<ImageVolumeVariant const> GetImageVolume(FrameStore::I_Buffer const & buffer, unsigned int frameIndex);
std::unique_ptr<ImageVolumeVariant> GetImageVolume(FrameStore::I_Buffer && buffer, unsigned int frameIndex,
                                                   bool maskRequired = false);

// Every frame of the buffer as one volume of an image buffer, whose pixel type is that of the
// first frame; the buffer's attributes become the global attributes.
std::unique_ptr<ImageBufferVariant const> GetImageBuffer(FrameStore::I_Buffer const & buffer);
std::unique_ptr<ImageBufferVariant> GetImageBuffer(FrameStore::I_Buffer & buffer, bool maskRequired);
std::unique_ptr<ImageBufferVariant> GetImageBuffer(FrameStore::I_Buffer && buffer, bool maskRequired);

} // namespace DataObjects
