#pragma once

#include "dataobjects/Image.h"
#include "framestore/DataType.h"

#include <memory>

namespace DataObjects {

class ImageDataVariant;
class ImageVariant;

//! A new image of pixel type T with the source's pixels converted (saturating, truncating),
//! its mask (all valid when the source has none), scales, attributes and scalar fields.
template <class T>
std::unique_ptr<Image<T>> CreateImageCopyOfType(ImageVariant const & source);

//! The FrameStore data type of the pixel type; DT_UNKNOWN for a plane of any other type.
FrameStore::E_DataType GetImageDataType(ImageDataVariant const & plane);
FrameStore::E_DataType GetImageDataType(ImageVariant const & image);

#define DATAOBJECTS_DECLARE_IMAGE_COPY_OF_TYPE(T) \
    extern template std::unique_ptr<Image<T>> CreateImageCopyOfType<T>(ImageVariant const &);
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_DECLARE_IMAGE_COPY_OF_TYPE)
#undef DATAOBJECTS_DECLARE_IMAGE_COPY_OF_TYPE

} // namespace DataObjects
