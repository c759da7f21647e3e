#pragma once

#include "math/Size.h"

#include <QString>

#include <memory>

namespace DataObjects {

class C_Attributes;
class I_ImageMemory;
class ImageVolumeVariant;
class LinearScale;
class MaskStrategy;

//! Type-erased base of every ImageBuffer<T>: the volumes of a multi-frame buffer, one per frame,
//! with the buffer's global attributes.
class ImageBufferVariant
{
public:
    virtual ~ImageBufferVariant();

    virtual C_Attributes & GetGlobalAttributes() = 0;
    virtual C_Attributes const & GetGlobalAttributes() const = 0;
    //! Empties the global attributes, then copies every attribute of the argument into them.
    virtual void SetGlobalAttributes(C_Attributes const & attributes) = 0;
    //! Basis::OutOfRangeError for an index beyond the list.
    virtual ImageVolumeVariant & GetImageVolumeVariant(unsigned int index) = 0;
    virtual ImageVolumeVariant const & GetImageVolumeVariant(unsigned int index) const = 0;
    virtual unsigned int GetListSize() const = 0;
    //! Whether every volume has the width, height and depth of volume 0; fails on an empty list.
    virtual bool AllVolumesHaveSameSize() const = 0;
    //! Adds a float scalar field of that name and scale to every plane of every volume.
    virtual void AddScalarField(QString const & name, LinearScale const & scale) = 0;
    //! A deep copy of the same pixel type.
    virtual std::unique_ptr<ImageBufferVariant> CreateCopy() const = 0;
    //! Converts the other buffer volume by volume and copies its global attributes; the number
    //! and sizes of the volumes must be equal.
    virtual void Assign(ImageBufferVariant const & source) = 0;
    //! Appends a volume of that size whose planes view the holder's memory, one plane after the
    //! other; the holder is released when the last plane goes. A given mask strategy serves a
    //! volume of depth 1; without one, masks are made on first use.
    virtual void AppendImageVolume(std::unique_ptr<I_ImageMemory> memory, Math::Size3T<unsigned int> const & size,
                                   std::unique_ptr<MaskStrategy> mask) = 0;
    //! Appends count new volumes of that size; valid is the initial state of every plane's mask.
    virtual void AppendImageVolume(Math::Size3T<unsigned int> const & size, unsigned int count, bool valid) = 0;
    //! Appends a volume whose planes lie one after the other in one block (see ImageBuffer).
    virtual void AppendImageVolumeOnConsecutiveMemory(Math::Size2T<unsigned int> const & size, unsigned int depth) = 0;

protected:
    ImageBufferVariant() = default;
    ImageBufferVariant(ImageBufferVariant const &) = default;
    ImageBufferVariant & operator=(ImageBufferVariant const &) = default;
};

} // namespace DataObjects
