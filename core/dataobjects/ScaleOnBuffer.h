#pragma once

#include "dataobjects/LinearScale.h"

#include <memory>

namespace FrameStore {
class I_Frame;
class I_Scale;
} // namespace FrameStore

namespace DataObjects {

//! Chooses one of a frame's scales. The codes are fixed; 3 is not a scale.
enum E_ScaleType {
    ScaleX = 0,
    ScaleY = 1,
    ScaleZ = 2,
    ScaleI = 4, //!< intensity
};

//! A detached copy of the frame's scale of that type. Raises Basis::VerificationFailed "Invalid
//! scale type" for another code, "Scale does not exist" when the frame has none and "Scale is
//! not linear." for a scale of another kind, in that order.
LinearScale GetScaleFromFrame(FrameStore::I_Frame const & frame, E_ScaleType type);

//! A live view of a frame scale (see Private::LinearScaleOnBufferScale); the scale must outlive
//! it. Raises "Scale is not linear." for a scale of another kind.
std::unique_ptr<LinearScale> GetScaleOnBufferScale(FrameStore::I_Scale & scale);

//! A new linear frame scale with the scale's four fields, owned by the caller, for installing
//! with the frame's SetScaleX/Y/Z/I. The factor is taken as it is, 0 included.
FrameStore::I_Scale * CreateFrameScale(LinearScale const & scale);

} // namespace DataObjects
