#include "dataobjects/ImageMoveToBuffer.h"

#include "basis/Throw.h"
#include "dataobjects/BufferLibDataAccess.h"
#include "dataobjects/ImageVariant.h"
#include "dataobjects/ImageVolumeVariant.h"
#include "dataobjects/ScalarFields.h"
#include "dataobjects/ScalarFieldsOnFrame.h"
#include "framestore/Frame.h"

namespace DataObjects {

namespace {

void CheckImageFrame(FrameStore::I_FrameImage const & frame)
{
    Private::SwitchFrameDataType<bool>(frame.GetDataType(), "RGB image is not supported.",
                                       "Image has unsupported data type", [](auto) { return true; });
}

void CheckDepth(unsigned int planes, FrameStore::I_FrameImage const & frame)
{
    if (planes != frame.GetDepth())
        BASIS_THROW(Basis::VerificationFailed, "scalar field planes and frame size z has to be equal!");
}

void MovePlane(ScalarFields & fields, FrameStore::I_FrameImage & frame, unsigned int z)
{
    Private::ScalarFieldsOnFrame target(frame, z);
    for (auto const & [name, field] : fields.GetMapping())
        target.Add(name, *field);
    fields.Clear();
}

} // namespace

void MoveScalarFieldsToFrame(ScalarFields && fields, FrameStore::I_FrameImage & frame)
{
    if (fields.GetSizeOfScalarFields() != Math::Size2T<unsigned int>(frame.GetWidth(), frame.GetHeight()))
        BASIS_THROW(Basis::VerificationFailed, "Size of scalar field and frame size must be equal!");
    CheckImageFrame(frame);
    CheckDepth(1, frame);
    MovePlane(fields, frame, 0);
}

void MoveScalarFieldsFromVolumeToFrame(ImageVolumeVariant && volume, FrameStore::I_FrameImage & frame)
{
    if (volume.GetWidth() != frame.GetWidth() || volume.GetHeight() != frame.GetHeight())
        BASIS_THROW(Basis::VerificationFailed, "Size of volume and frame size must be equal!");
    CheckImageFrame(frame);
    CheckDepth(volume.GetDepth(), frame);
    for (unsigned int z = 0; z < volume.GetDepth(); ++z)
        MovePlane(volume.GetImageVariant(z).GetScalarFields(), frame, z);
}

} // namespace DataObjects
