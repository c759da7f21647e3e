#pragma once

#include "dataobjects/PixelTypes.h"
#include "framestore/DataType.h"

#include <cstddef>
#include <type_traits>

namespace DataObjects {

class ImageDataVariant;
template <class T>
class ImageData;
class ImageVariant;
template <class T>
class Image;
class ImageVolumeVariant;
template <class T>
class ImageVolume;
class ImageBufferVariant;
template <class T>
class ImageBuffer;
class ScalarFieldVariant;
template <class T>
class ScalarField;

namespace Private {

//! What the type switch needs to know of a type-erased base: the concrete template behind it
//! and the kind word of its failure message. Specialised once per base.
template <class Base>
struct PixelSwitchTraits;

template <>
struct PixelSwitchTraits<ImageDataVariant>
{
    static constexpr char const * Kind = "Image";
    template <class T>
    using Concrete = ImageData<T>;
};

template <>
struct PixelSwitchTraits<ImageVariant>
{
    static constexpr char const * Kind = "Image";
    template <class T>
    using Concrete = Image<T>;
};

template <>
struct PixelSwitchTraits<ImageVolumeVariant>
{
    static constexpr char const * Kind = "Image volume";
    template <class T>
    using Concrete = ImageVolume<T>;
};

template <>
struct PixelSwitchTraits<ImageBufferVariant>
{
    static constexpr char const * Kind = "Image volume";
    template <class T>
    using Concrete = ImageBuffer<T>;
};

template <>
struct PixelSwitchTraits<ScalarFieldVariant>
{
    static constexpr char const * Kind = "Scalar field";
    template <class T>
    using Concrete = ScalarField<T>;
};

//! Raises Basis::Exception "<kind> type not supported by macro. Function is '<function>'.".
[[noreturn]] void ThrowUnsupportedPixelType(char const * kind, char const * function);

template <class Base, class T>
using ConcreteOf = std::conditional_t<std::is_const_v<Base>,
                                      typename PixelSwitchTraits<std::remove_const_t<Base>>::template Concrete<T> const,
                                      typename PixelSwitchTraits<std::remove_const_t<Base>>::template Concrete<T>>;

template <class Base, class Function>
using SwitchResult = std::invoke_result_t<Function &, ConcreteOf<Base, float> &>;

template <std::size_t I, class Base, class Function>
SwitchResult<Base, Function> SwitchPixelTypeFrom(Base & object, char const * function, Function & typedFunction)
{
    if constexpr (I == std::tuple_size_v<PixelTypeList>) {
        ThrowUnsupportedPixelType(PixelSwitchTraits<std::remove_const_t<Base>>::Kind, function);
    } else {
        using Typed = ConcreteOf<Base, std::tuple_element_t<I, PixelTypeList>>;
        if (auto * typed = dynamic_cast<Typed *>(&object))
            return typedFunction(*typed);
        return SwitchPixelTypeFrom<I + 1>(object, function, typedFunction);
    }
}

//! The type switch over a type-erased object: tries the six pixel types in their fixed order,
//! calls typedFunction with the first concrete object that matches, and raises the
//! unsupported-type failure naming function ("AssignTU(...)") when none does. typedFunction is
//! a generic lambda; every instantiation must return the same type.
template <class Base, class Function>
SwitchResult<Base, Function> SwitchPixelType(Base & object, char const * function, Function && typedFunction)
{
    return SwitchPixelTypeFrom<0>(object, function, typedFunction);
}

//! The switch over a FrameStore data type: calls typedFunction(T()) for the pixel type T whose
//! data type is type and answers true; answers false when type is none of the six.
template <class Function>
bool SwitchDataType(FrameStore::E_DataType type, Function && typedFunction)
{
    return std::apply(
        [&](auto... tags) {
            return ((type == FrameStore::GetDataType<decltype(tags)>() ? (typedFunction(tags), true) : false) || ...);
        },
        PixelTypeList());
}

} // namespace Private
} // namespace DataObjects
