#pragma once

#include "framestore/DataType.h"
#include "math/Size.h"

#include <memory>

namespace DataObjects {

class ImageDataVariant;
class LinearScale;

//! Type-erased base of every ScalarField<T>: a plane of derived per-pixel values (uncertainty,
//! correlation value) on the grid of an image or a vector field.
class ScalarFieldVariant
{
public:
    virtual ~ScalarFieldVariant();

    virtual Math::Size2T<unsigned int> GetSize() const = 0;
    virtual unsigned int GetWidth() const = 0;
    virtual unsigned int GetHeight() const = 0;
    //! A deep, owning copy of the same element type.
    virtual std::unique_ptr<ScalarFieldVariant> CreateCopy() const = 0;
    //! A new field that has taken this one's plane over (a view stays a view); this one is left
    //! empty.
    virtual std::unique_ptr<ScalarFieldVariant> MoveToNew() = 0;
    //! Converts the other field's values into this one; the sizes must be equal. The scale stays.
    virtual void Assign(ScalarFieldVariant const & source) = 0;
    virtual FrameStore::E_DataType GetDataType() const = 0;
    virtual ImageDataVariant & GetImageDataVariant() = 0;
    virtual ImageDataVariant const & GetImageDataVariant() const = 0;
    //! What the values mean physically; the identity scale unless set.
    virtual LinearScale & GetScale() = 0;
    virtual LinearScale const & GetScale() const = 0;
    virtual void SetScale(LinearScale const & scale) = 0;

protected:
    ScalarFieldVariant() = default;
    ScalarFieldVariant(ScalarFieldVariant const &) = default;
    ScalarFieldVariant & operator=(ScalarFieldVariant const &) = default;
};

} // namespace DataObjects
