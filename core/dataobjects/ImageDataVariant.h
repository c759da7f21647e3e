#pragma once

#include "math/Size.h"

#include <memory>

namespace DataObjects {

//! Type-erased base of every ImageData<T>: one plane of pixels of some type.
class ImageDataVariant
{
public:
    virtual ~ImageDataVariant();

    virtual Math::Size2T<unsigned int> const & GetSize() const = 0;
    virtual unsigned int GetWidth() const = 0;
    virtual unsigned int GetHeight() const = 0;
    //! A deep, owning copy of the same pixel type.
    virtual std::unique_ptr<ImageDataVariant> CreateCopy() const = 0;
    virtual bool HasOwnerShip() const = 0;
    //! Converts the other plane's pixels into this one; the sizes must be equal.
    virtual void Assign(ImageDataVariant const & source) = 0;

protected:
    ImageDataVariant() = default;
    ImageDataVariant(ImageDataVariant const &) = default;
    ImageDataVariant & operator=(ImageDataVariant const &) = default;
};

} // namespace DataObjects
