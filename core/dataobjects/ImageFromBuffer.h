#pragma once

#include "dataobjects/ImageVariant.h"

#include <memory>

namespace FrameStore {
class I_Buffer;
class I_FrameImage;
} // namespace FrameStore

namespace DataObjects {

// Plane z of an image frame as an image of the frame's pixel type.
//
// From a frame by reference the image is a view: its pixels are the frame's plane, its scales
// read and write the frame's scales, its attributes are the frame's tree, its mask the frame's
// mask plane and its scalar fields the frame's typed scalars. The frame must outlive it. With
// maskRequired a frame without mask fails; otherwise such an image has an all-valid mask of its
// own. The const forms give the same view, read-only, without requiring a mask.
//
// From a frame as an rvalue the image is self-contained: pixel, mask and scalar-field memory is
// taken from the frame without copying; scales and attributes are copied.
std::unique_ptr<ImageVariant> GetImage(FrameStore::I_FrameImage & frame, unsigned int z, bool maskRequired);
std::unique_ptr<ImageVariant const> GetImage(FrameStore::I_FrameImage const & frame, unsigned int z);
std::unique_ptr<ImageVariant> GetImage(FrameStore::I_FrameImage && frame, unsigned int z, bool maskRequired);
std::unique_ptr<ImageVariant> GetImage(FrameStore::I_FrameImage * frame, unsigned int z, bool maskRequired);

// The same for frame frameIndex of a buffer.
std::unique_ptr<ImageVariant> GetImage(FrameStore::I_Buffer & buffer, unsigned int frameIndex, unsigned int z,
                                       bool maskRequired);
std::unique_ptr<ImageVariant const> GetImage(FrameStore::I_Buffer const & buffer, unsigned int frameIndex,
                                             unsigned int z);
std::unique_ptr<ImageVariant> GetImage(FrameStore::I_Buffer && buffer, unsigned int frameIndex, unsigned int z,
                                       bool maskRequired);
std::unique_ptr<ImageVariant> GetImage(FrameStore::I_Buffer * buffer, unsigned int frameIndex, unsigned int z,
                                       bool maskRequired);

//! Gives the frame an all-valid mask component when it has none, then the view of plane z with
//! that mask.
std::unique_ptr<ImageVariant> AttachMaskAndGetImage(FrameStore::I_FrameImage * frame, unsigned int z);

} // namespace DataObjects
