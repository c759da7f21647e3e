#pragma once

namespace FrameStore {
class I_FrameImage;
} // namespace FrameStore

namespace DataObjects {

class ImageVolumeVariant;
class ScalarFields;

//! Every field becomes a typed scalar of the frame (depth 1, the fields' size, one of the six
//! pixel types), of the field's name and element type; the collection is left empty.
void MoveScalarFieldsToFrame(ScalarFields && fields, FrameStore::I_FrameImage & frame);
//! The scalar fields of plane z of the volume become the typed scalars of plane z of the frame,
//! which must have the volume's width, height and depth; the planes' collections are left empty.
void MoveScalarFieldsFromVolumeToFrame(ImageVolumeVariant && volume, FrameStore::I_FrameImage & frame);

} // namespace DataObjects
