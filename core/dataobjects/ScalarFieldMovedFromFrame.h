#pragma once

#include "dataobjects/ScalarField.h"

namespace FrameStore {
class I_PlaneBase;
} // namespace FrameStore

namespace DataObjects::Private {

//! A scalar field that has taken the memory of a frame's plane over and owns it.
template <class T>
class ScalarFieldMovedFromFrame : public ScalarField<T>
{
public:
    //! The plane must hold elements of type T; it is left empty.
    explicit ScalarFieldMovedFromFrame(FrameStore::I_PlaneBase && plane);
};

#define DATAOBJECTS_DECLARE_SCALAR_FIELD_MOVED(T) extern template class ScalarFieldMovedFromFrame<T>;
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_DECLARE_SCALAR_FIELD_MOVED)
#undef DATAOBJECTS_DECLARE_SCALAR_FIELD_MOVED

} // namespace DataObjects::Private
