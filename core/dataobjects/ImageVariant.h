#pragma once

#include "math/Size.h"

#include <memory>

namespace DataObjects {

class C_Attributes;
class ImageDataVariant;
class LinearScale;
class Mask;
class ScalarFields;

//! Type-erased base of every Image<T>: a plane of pixels with its mask, x, y and intensity
//! scales, attributes and scalar fields.
//!
//! Setters change the value of the held object and never replace it, so every holder of a shared
//! scale or attribute set (the planes of a volume, an image and its frame) sees the change.
class ImageVariant
{
public:
    virtual ~ImageVariant();

    //! Made on first use when the image has no mask yet.
    virtual Mask & GetMask() = 0;
    virtual Mask const & GetMask() const = 0;
    virtual LinearScale & GetScaleX() = 0;
    virtual LinearScale const & GetScaleX() const = 0;
    virtual void SetScaleX(LinearScale const & scale) = 0;
    virtual LinearScale & GetScaleY() = 0;
    virtual LinearScale const & GetScaleY() const = 0;
    virtual void SetScaleY(LinearScale const & scale) = 0;
    virtual LinearScale & GetScaleI() = 0;
    virtual LinearScale const & GetScaleI() const = 0;
    virtual void SetScaleI(LinearScale const & scale) = 0;
    virtual C_Attributes & GetAttributes() = 0;
    virtual C_Attributes const & GetAttributes() const = 0;
    //! Empties the held set, then copies every attribute of the argument into it.
    virtual void SetAttributes(C_Attributes const & attributes) = 0;
    virtual ScalarFields & GetScalarFields() = 0;
    virtual ScalarFields const & GetScalarFields() const = 0;
    virtual Math::Size2T<unsigned int> const & GetSize() const = 0;
    virtual unsigned int GetWidth() const = 0;
    virtual unsigned int GetHeight() const = 0;
    //! A deep copy of the same pixel type.
    virtual std::unique_ptr<ImageVariant> CreateCopy() const = 0;
    //! Copies the mask's values into the image's mask; the sizes must be equal.
    virtual void SetMask(Mask const & mask) = 0;
    virtual std::shared_ptr<Mask> GetMaskSPtr() = 0;
    virtual std::shared_ptr<ImageDataVariant> GetImageDataSPtr() = 0;
    virtual std::shared_ptr<ImageDataVariant const> GetImageDataSPtr() const = 0;
    virtual ImageDataVariant & GetImageData() = 0;
    virtual ImageDataVariant const & GetImageData() const = 0;
    //! Converts the other image into this one: pixels, mask, scales, attributes and scalar
    //! fields. The sizes must be equal; this image's objects keep their identity.
    virtual void Assign(ImageVariant const & source) = 0;
    //! Whether a mask exists, without making one.
    virtual bool HasMask() const = 0;

protected:
    ImageVariant() = default;
    ImageVariant(ImageVariant const &) = default;
    ImageVariant & operator=(ImageVariant const &) = default;
};

} // namespace DataObjects
