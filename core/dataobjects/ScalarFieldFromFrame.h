#pragma once

#include "dataobjects/ScalarFields.h"

#include <memory>
#include <string>

namespace FrameStore {
class I_Frame;
} // namespace FrameStore

namespace DataObjects {

//! A view on plane z of the frame's typed scalar of that name: writes reach the frame.
std::unique_ptr<ScalarFieldVariant> GetScalarField(FrameStore::I_Frame & frame, std::string const & name,
                                                   unsigned int z);
//! The frame's scalar fields of plane z, seen and changed in place.
std::unique_ptr<ScalarFields> GetScalarFields(FrameStore::I_Frame & frame, unsigned int z);
//! The frame's scalar fields of plane z, their memory taken from the frame.
std::unique_ptr<ScalarFields> GetScalarFields(FrameStore::I_Frame && frame, unsigned int z);
//! Takes the memory of plane z of every typed scalar of the frame into the collection, which must
//! have the frame's width and height. Everything is checked before anything is taken.
void MoveScalarFieldFromFrame(ScalarFields & fields, FrameStore::I_Frame && frame, unsigned int z);

} // namespace DataObjects
