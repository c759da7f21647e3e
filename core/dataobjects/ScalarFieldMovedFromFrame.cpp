#include "dataobjects/ScalarFieldMovedFromFrame.h"

#include "framestore/Plane.h"

namespace DataObjects::Private {

namespace {

template <class T>
ImageData<T> TakePlane(FrameStore::I_PlaneBase & plane)
{
    unsigned int const width = plane.GetWidth();
    unsigned int const height = plane.GetHeight();
    return ImageData<T>(static_cast<T *>(plane.ReleaseMemory()), width, height, true);
}

} // namespace

template <class T>
ScalarFieldMovedFromFrame<T>::ScalarFieldMovedFromFrame(FrameStore::I_PlaneBase && plane)
    : ScalarField<T>(TakePlane<T>(plane))
{
}

#define DATAOBJECTS_INSTANTIATE_SCALAR_FIELD_MOVED(T) template class ScalarFieldMovedFromFrame<T>;
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_INSTANTIATE_SCALAR_FIELD_MOVED)

} // namespace DataObjects::Private
