#include "dataobjects/ImageTypeConversion.h"

#include "dataobjects/TypeSwitch.h"

#include <tuple>

namespace DataObjects {

namespace {

//! The data type of the first pixel type whose concrete class the object is, or DT_UNKNOWN.
template <template <class> class Concrete, class Base>
FrameStore::E_DataType DataTypeOf(Base const & object)
{
    FrameStore::E_DataType type = FrameStore::DT_UNKNOWN;
    std::apply(
        [&](auto... tags) {
            ((dynamic_cast<Concrete<decltype(tags)> const *>(&object)
                  ? (type = FrameStore::GetDataType<decltype(tags)>(), true)
                  : false)
             || ...);
        },
        PixelTypeList());
    return type;
}

} // namespace

template <class T>
std::unique_ptr<Image<T>> CreateImageCopyOfType(ImageVariant const & source)
{
    return Private::SwitchPixelType(source, "CreateImageCopyOfTypeT< T >(...)", [](auto const & typed) {
        auto copy = std::make_unique<Image<T>>(typed.GetSize(), false);
        copy->Assign(typed);
        return copy;
    });
}

FrameStore::E_DataType GetImageDataType(ImageDataVariant const & plane)
{
    return DataTypeOf<ImageData>(plane);
}

FrameStore::E_DataType GetImageDataType(ImageVariant const & image)
{
    return DataTypeOf<Image>(image);
}

#define DATAOBJECTS_INSTANTIATE_IMAGE_COPY_OF_TYPE(T) \
    template std::unique_ptr<Image<T>> CreateImageCopyOfType<T>(ImageVariant const &);
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_INSTANTIATE_IMAGE_COPY_OF_TYPE)

} // namespace DataObjects
