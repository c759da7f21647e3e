#include "dataobjects/ScalarFieldOnFrame.h"

#include "framestore/Plane.h"

namespace DataObjects::Private {

template <class T>
ScalarFieldOnFrame<T>::ScalarFieldOnFrame(FrameStore::I_PlaneBase & plane)
    : ScalarField<T>(ImageData<T>(static_cast<T *>(plane.GetData()), plane.GetWidth(), plane.GetHeight(), false))
{
}

#define DATAOBJECTS_INSTANTIATE_SCALAR_FIELD_ON_FRAME(T) template class ScalarFieldOnFrame<T>;
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_INSTANTIATE_SCALAR_FIELD_ON_FRAME)

} // namespace DataObjects::Private
