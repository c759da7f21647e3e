#pragma once

#include "dataobjects/ImageBuffer.h"

#include <memory>

namespace FrameStore {
class I_Buffer;
} // namespace FrameStore

namespace DataObjects {

//! Every image frame of the buffer as a float volume of its own memory, with the frame's scales,
//! attributes and scalar fields; the buffer's attributes become the global ones.
//!
//! Each new plane starts with an all-valid mask, and where the frame has a mask plane that mask
//! is written into the frame: the frame's mask is reset to all valid, not read. Callers rely on
//! this direction.
std::unique_ptr<ImageBuffer<float>> ConvertToFloat(FrameStore::I_Buffer const & buffer);

} // namespace DataObjects
