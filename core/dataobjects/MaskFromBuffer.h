#pragma once

#include "dataobjects/Mask.h"

#include <QString>

namespace FrameStore {
class I_Frame;
class I_PlaneBase;
} // namespace FrameStore

namespace DataObjects {

//! A view on an 8-bit plane: writing the mask writes the plane.
Mask GetMask(FrameStore::I_PlaneBase & plane);
//! Takes the plane's memory; the plane is left empty.
Mask GetMask(FrameStore::I_PlaneBase && plane);
//! A view on plane z of the frame's mask component.
Mask GetMask(FrameStore::I_Frame const & frame, unsigned int z);

//! Writes the mask as a buffer file of one 8-bit image frame (0 masked out, 1 valid) that also
//! carries the mask as its mask component, so GetMask(frame, 0) reads it back.
void ExportMask(Mask const & mask, QString const & fileName);

namespace Private {

//! A view on plane z of the frame's mask; a frame without mask gives a new all-valid mask of the
//! frame's size, or fails when a mask is required.
Mask GetOrCreateMask(FrameStore::I_Frame const & frame, unsigned int z, bool maskRequired);
//! As GetOrCreateMask, but plane z's memory is taken from the frame instead of viewed.
Mask MoveOrCreateMask(FrameStore::I_Frame && frame, unsigned int z, bool maskRequired);

} // namespace Private
} // namespace DataObjects
