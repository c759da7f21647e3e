#include "dataobjects/ScaleOnBuffer.h"

#include "basis/Throw.h"
#include "dataobjects/LinearScaleOnBufferScale.h"
#include "framestore/Frame.h"
#include "framestore/Scale.h"

namespace DataObjects {

namespace {
FrameStore::I_Scale * FrameScale(FrameStore::I_Frame const & frame, E_ScaleType type)
{
    switch (type) {
    case ScaleX: return frame.GetScaleX();
    case ScaleY: return frame.GetScaleY();
    case ScaleZ: return frame.GetScaleZ();
    case ScaleI: return frame.GetScaleI();
    }
    BASIS_THROW(Basis::VerificationFailed, "Invalid scale type");
}
} // namespace

LinearScale GetScaleFromFrame(FrameStore::I_Frame const & frame, E_ScaleType type)
{
    // The view makes the checks; copying it into a plain scale reads the values once.
    return LinearScale(Private::LinearScaleOnBufferScale(FrameScale(frame, type)));
}

std::unique_ptr<LinearScale> GetScaleOnBufferScale(FrameStore::I_Scale & scale)
{
    return std::make_unique<Private::LinearScaleOnBufferScale>(&scale);
}

FrameStore::I_Scale * CreateFrameScale(LinearScale const & scale)
{
    return FrameStore::C_ScaleFactory::GetInstance().CreateLinearScale(scale.GetFactor(), scale.GetOffset(),
                                                                       scale.GetUnit(), scale.GetDescription());
}

} // namespace DataObjects
