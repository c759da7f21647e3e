#pragma once

#include "math/Size.h"

#include <memory>

namespace DataObjects {

class C_Attributes;
class ImageVariant;
class LinearScale;

//! Type-erased base of every ImageVolume<T>: a stack of images of one size sharing their x, y and
//! intensity scales and one attribute set, with a z scale.
class ImageVolumeVariant
{
public:
    virtual ~ImageVolumeVariant();

    //! Width and height of the planes, depth the number of planes.
    virtual Math::Size3T<unsigned int> GetSize() const = 0;
    virtual unsigned int GetWidth() const = 0;
    virtual unsigned int GetHeight() const = 0;
    virtual unsigned int GetDepth() const = 0;
    // Plane z; unchecked.
    virtual ImageVariant & GetImageVariant(unsigned int z) = 0;
    virtual ImageVariant const & GetImageVariant(unsigned int z) const = 0;
    virtual std::shared_ptr<ImageVariant> GetImageVariantSPtr(unsigned int z) = 0;
    virtual std::shared_ptr<ImageVariant const> GetImageVariantSPtr(unsigned int z) const = 0;
    // The x, y and intensity scales are those of every plane; setting copies the value.
    virtual LinearScale & GetScaleX() = 0;
    virtual LinearScale const & GetScaleX() const = 0;
    virtual void SetScaleX(LinearScale const & scale) = 0;
    virtual LinearScale & GetScaleY() = 0;
    virtual LinearScale const & GetScaleY() const = 0;
    virtual void SetScaleY(LinearScale const & scale) = 0;
    virtual LinearScale & GetScaleI() = 0;
    virtual LinearScale const & GetScaleI() const = 0;
    virtual void SetScaleI(LinearScale const & scale) = 0;
    virtual LinearScale & GetScaleZ() = 0;
    virtual LinearScale const & GetScaleZ() const = 0;
    virtual void SetScaleZ(LinearScale const & scale) = 0;
    //! The attribute set shared by all planes.
    virtual C_Attributes & GetAttributes() = 0;
    virtual C_Attributes const & GetAttributes() const = 0;
    virtual void SetAttributes(C_Attributes const & attributes) = 0;
    //! A deep copy of the same pixel type.
    virtual std::unique_ptr<ImageVolumeVariant> CreateCopy() const = 0;
    //! Converts the other volume plane by plane; width, height and depth must be equal.
    virtual void Assign(ImageVolumeVariant const & source) = 0;

protected:
    ImageVolumeVariant() = default;
    ImageVolumeVariant(ImageVolumeVariant const &) = default;
    ImageVolumeVariant & operator=(ImageVolumeVariant const &) = default;
};

} // namespace DataObjects
