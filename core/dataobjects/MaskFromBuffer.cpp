#include "dataobjects/MaskFromBuffer.h"

#include "basis/Throw.h"
#include "framestore/Buffer.h"
#include "framestore/BufferFile.h"
#include "framestore/Frame.h"
#include "framestore/Plane.h"

#include <algorithm>
#include <memory>
#include <type_traits>

namespace DataObjects {

namespace {

void CheckMaskPlane(FrameStore::I_PlaneBase const & plane)
{
    if (!FrameStore::IsOfType<unsigned char>(plane))
        BASIS_THROW(Basis::VerificationFailed, "plane type cannot be mapped onto a bool array");
}

FrameStore::I_PlaneBase & MaskPlane(FrameStore::I_Frame const & frame, unsigned int z)
{
    if (z >= frame.GetDepth())
        BASIS_THROW(Basis::VerificationFailed, "Z is out of range");
    FrameStore::I_Component const * component = frame.GetComponent(FrameStore::I_Frame::COMPONENT_MASK);
    if (!component)
        BASIS_THROW(Basis::VerificationFailed, "Frame has no mask");
    return *component->GetPlane(z);
}

template <class Frame>
Mask GetOrCreate(Frame && frame, unsigned int z, bool maskRequired)
{
    if (!frame.HasMask()) {
        if (maskRequired)
            BASIS_THROW(Basis::VerificationFailed, "Frame requires a mask, but has no mask.");
        return Mask(frame.GetWidth(), frame.GetHeight(), true);
    }
    FrameStore::I_PlaneBase & plane = MaskPlane(frame, z);
    if constexpr (std::is_lvalue_reference_v<Frame>)
        return GetMask(plane);
    else
        return GetMask(std::move(plane));
}

} // namespace

Mask GetMask(FrameStore::I_PlaneBase & plane)
{
    CheckMaskPlane(plane);
    return Mask(static_cast<bool *>(plane.GetData()), plane.GetWidth(), plane.GetHeight(), false);
}

Mask GetMask(FrameStore::I_PlaneBase && plane)
{
    CheckMaskPlane(plane);
    unsigned int const width = plane.GetWidth();
    unsigned int const height = plane.GetHeight();
    return Mask(static_cast<bool *>(plane.ReleaseMemory()), width, height, true);
}

Mask GetMask(FrameStore::I_Frame const & frame, unsigned int z)
{
    return GetMask(MaskPlane(frame, z));
}

void ExportMask(Mask const & mask, QString const & fileName)
{
    std::unique_ptr<FrameStore::I_Buffer> buffer(FrameStore::CreateBuffer());
    FrameStore::I_FrameImage * frame
        = buffer->CreateFrame(mask.GetWidth(), mask.GetHeight(), 1, FrameStore::DT_BYTE);
    auto * pixels = static_cast<unsigned char *>(frame->GetPlane(0, 0)->GetData());
    std::transform(mask.begin(), mask.end(), pixels,
                   [](bool const & valid) { return reinterpret_cast<unsigned char const &>(valid) != 0; });
    std::unique_ptr<FrameStore::I_PlaneBase> plane(frame->GetPlane(0, 0)->Clone());
    frame->CreateMaskComponent({plane.release()});
    FrameStore::ExportBuffer(buffer.get(), fileName, {});
}

namespace Private {

Mask GetOrCreateMask(FrameStore::I_Frame const & frame, unsigned int z, bool maskRequired)
{
    return GetOrCreate(frame, z, maskRequired);
}

Mask MoveOrCreateMask(FrameStore::I_Frame && frame, unsigned int z, bool maskRequired)
{
    return GetOrCreate(std::move(frame), z, maskRequired);
}

} // namespace Private
} // namespace DataObjects
