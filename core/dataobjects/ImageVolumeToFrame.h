#pragma once

#include "framestore/Buffer.h"

#include <memory>

namespace FrameStore {
class I_FrameImage;
} // namespace FrameStore

namespace DataObjects {

class ImageBufferVariant;
class ImageVolumeVariant;

// A new frame with one plane per z of the volume, carrying pixels, scales (z the volume's),
// attributes, scalar fields and with withMask the masks; owned by the caller. The rvalue forms
// hand owned pixel blocks over to the frame instead of copying them.
FrameStore::I_FrameImage * CreateFrameFromImageVolume(ImageVolumeVariant const & volume, bool withMask);
FrameStore::I_FrameImage * CreateFrameFromImageVolume(ImageVolumeVariant && volume, bool withMask);
std::unique_ptr<FrameStore::I_Buffer> CreateBufferFromImageVolume(ImageVolumeVariant const & volume, bool withMask);
std::unique_ptr<FrameStore::I_Buffer> CreateBufferFromImageVolume(ImageVolumeVariant && volume, bool withMask);
//! One frame per volume, in order; the global attributes become the buffer's.
std::unique_ptr<FrameStore::I_Buffer> CreateBufferFromImageBuffer(ImageBufferVariant const & buffer, bool withMask);
std::unique_ptr<FrameStore::I_Buffer> CreateBufferFromImageBuffer(ImageBufferVariant && buffer, bool withMask);

//! Copies the pixels of every plane into the frame, which must have the volume's pixel type and
//! size, and the masks of the planes that have one into the frame's mask. Planes copied before a
//! failure stay copied.
void CopyImageVolumeToFrame(ImageVolumeVariant const & volume, FrameStore::I_FrameImage & frame);

} // namespace DataObjects
