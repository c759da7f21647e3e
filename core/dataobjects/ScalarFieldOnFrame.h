#pragma once

#include "dataobjects/ScalarField.h"

namespace FrameStore {
class I_PlaneBase;
} // namespace FrameStore

namespace DataObjects::Private {

//! A scalar field that views a plane of a frame's typed scalar component: writes reach the
//! frame. Valid for as long as the component exists.
template <class T>
class ScalarFieldOnFrame : public ScalarField<T>
{
public:
    //! The plane must hold elements of type T.
    explicit ScalarFieldOnFrame(FrameStore::I_PlaneBase & plane);
};

#define DATAOBJECTS_DECLARE_SCALAR_FIELD_ON_FRAME(T) extern template class ScalarFieldOnFrame<T>;
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_DECLARE_SCALAR_FIELD_ON_FRAME)
#undef DATAOBJECTS_DECLARE_SCALAR_FIELD_ON_FRAME

} // namespace DataObjects::Private
