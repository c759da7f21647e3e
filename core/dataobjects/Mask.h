#pragma once

#include "dataobjects/ImageData.h"

namespace DataObjects {

//! Which pixels of an image, or grid points of a vector field, are valid (true) and which are
//! masked out (false): a plane of one byte per pixel with the ownership and view rules of
//! ImageData<bool>. A mask read from a frame views the frame's mask plane, so writing the mask
//! writes the frame.
//!
//! Bytes are read as valid when they are not 0, so a frame plane written by other code with
//! 255 for valid reads the same as one holding 1.
class Mask : public ImageData<bool>
{
public:
    //! An owning mask, left uninitialised.
    explicit Mask(Math::Size2T<unsigned int> const & size);
    Mask(unsigned int width, unsigned int height);
    //! An owning mask with every pixel set to valid.
    Mask(Math::Size2T<unsigned int> const & size, bool valid);
    Mask(unsigned int width, unsigned int height, bool valid);
    //! Over existing memory, as ImageData<bool>; without ownership the mask is a view.
    Mask(bool * data, Math::Size2T<unsigned int> const & size, bool takeOwnership);
    Mask(bool * data, unsigned int width, unsigned int height, bool takeOwnership);
    //! A view on the holder's memory with every pixel set to valid.
    Mask(std::unique_ptr<I_ImageMemory> memory, unsigned int width, unsigned int height, bool valid);

    //! Always an owning copy, also of a view.
    Mask(Mask const & other) = default;
    //! Takes pointer, size and ownership; the source is left empty.
    Mask(Mask && other) noexcept = default;
    ~Mask() override;

    //! Copies the bytes into the existing memory; sizes must be equal. Never reallocates.
    Mask & operator=(Mask const & other);
    //! See ImageData::MoveFrom: a view of equal size is written, a view of another size detaches.
    Mask & operator=(Mask && other);
    Mask & operator=(bool valid);
    void DeepCopyFrom(Mask const & other);
    void MoveFrom(Mask && other);
    //! Masks are copied; any pixel type is valid where it is not 0 (NaN is valid).
    void Assign(ImageDataVariant const & image) override;

    // Combination pixel by pixel, in place, in one pass; the masks must have the same size.
    Mask & operator&=(Mask const & other);
    Mask & operator|=(Mask const & other);
    Mask & operator^=(Mask const & other);

    bool IsValid(unsigned int x, unsigned int y) const { return Bytes()[GetArrayOffset(x, y)] != 0; }
    bool IsValid(Math::Point2T<unsigned int> const & p) const { return IsValid(p.x, p.y); }
    void SetValid(unsigned int x, unsigned int y, bool valid) { SetPixel(x, y, valid); }
    void SetValid(Math::Point2T<unsigned int> const & p, bool valid) { SetPixel(p, valid); }

private:
    unsigned char const * Bytes() const { return reinterpret_cast<unsigned char const *>(GetRawPointer()); }
    template <class Operation>
    Mask & CombineWith(Mask const & other, Operation operation);
};

} // namespace DataObjects
