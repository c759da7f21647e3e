#pragma once

#include "dataobjects/ImageData.h"
#include "dataobjects/ImageVariant.h"

#include <memory>

namespace DataObjects {

class MaskStrategy;

//! One measured plane with everything that gives its pixels meaning: the pixel plane, its mask,
//! the x, y and intensity scales, the attribute set and the scalar fields computed on it.
//!
//! Every part is held shared. Planes of a volume share their scales and attribute set; an image
//! read from a frame holds scales, attributes, mask and scalar fields that live in the frame.
//! Copies are deep; assignment converts contents and keeps every held object.
template <class T>
class Image : public ImageVariant
{
public:
    using value_type = T;

    //! A new owned plane, left uninitialised; the mask is made, all valid, on first use.
    explicit Image(Math::Size2T<unsigned int> const & size);
    Image(unsigned int width, unsigned int height);
    //! A new owned plane and a mask made now: all valid, or uninitialised when valid is false.
    Image(Math::Size2T<unsigned int> const & size, bool valid);
    Image(unsigned int width, unsigned int height, bool valid);
    //! As above, every pixel set to value.
    Image(Math::Size2T<unsigned int> const & size, T value, bool valid);
    //! Takes the plane over, viewing or owning as it did; the mask is made on first use.
    explicit Image(ImageData<T> && plane);
    //! Takes plane and mask over; the mask must have the plane's size.
    Image(ImageData<T> && plane, Mask && mask);
    //! Shares the plane; default scales, empty attributes and scalar fields, mask on first use.
    explicit Image(std::shared_ptr<ImageData<T>> plane);
    //! A view on outside pixel memory with the given parts, which are checked in this order:
    //! mask strategy, its size, x, y and intensity scale, attributes, scalar fields, their size.
    Image(T * data, Math::Size2T<unsigned int> const & size, std::unique_ptr<MaskStrategy> mask,
          std::shared_ptr<LinearScale> const & scaleX, std::shared_ptr<LinearScale> const & scaleY,
          std::shared_ptr<LinearScale> const & scaleI, std::shared_ptr<C_Attributes> const & attributes,
          std::shared_ptr<ScalarFields> const & scalarFields);
    //! The same on a shared plane.
    Image(std::shared_ptr<ImageData<T>> plane, std::unique_ptr<MaskStrategy> mask,
          std::shared_ptr<LinearScale> const & scaleX, std::shared_ptr<LinearScale> const & scaleY,
          std::shared_ptr<LinearScale> const & scaleI, std::shared_ptr<C_Attributes> const & attributes,
          std::shared_ptr<ScalarFields> const & scalarFields);

    //! Deep: own plane, mask, scales, attributes and scalar fields. A mask not yet made stays so.
    Image(Image const & other);
    Image(Image && other) noexcept;
    //! Same as Assign: contents change, held objects stay.
    Image & operator=(Image const & other);
    //! Takes the other's objects over.
    Image & operator=(Image && other) noexcept;
    ~Image() override;

    Mask & GetMask() override;
    Mask const & GetMask() const override;
    LinearScale & GetScaleX() override { return *m_scaleX; }
    LinearScale const & GetScaleX() const override { return *m_scaleX; }
    void SetScaleX(LinearScale const & scale) override;
    LinearScale & GetScaleY() override { return *m_scaleY; }
    LinearScale const & GetScaleY() const override { return *m_scaleY; }
    void SetScaleY(LinearScale const & scale) override;
    LinearScale & GetScaleI() override { return *m_scaleI; }
    LinearScale const & GetScaleI() const override { return *m_scaleI; }
    void SetScaleI(LinearScale const & scale) override;
    C_Attributes & GetAttributes() override { return *m_attributes; }
    C_Attributes const & GetAttributes() const override { return *m_attributes; }
    void SetAttributes(C_Attributes const & attributes) override;
    ScalarFields & GetScalarFields() override { return *m_scalarFields; }
    ScalarFields const & GetScalarFields() const override { return *m_scalarFields; }
    Math::Size2T<unsigned int> const & GetSize() const override { return m_plane->GetSize(); }
    unsigned int GetWidth() const override { return m_plane->GetWidth(); }
    unsigned int GetHeight() const override { return m_plane->GetHeight(); }
    std::unique_ptr<ImageVariant> CreateCopy() const override;
    void SetMask(Mask const & mask) override;
    std::shared_ptr<Mask> GetMaskSPtr() override;
    std::shared_ptr<ImageDataVariant> GetImageDataSPtr() override { return m_plane; }
    std::shared_ptr<ImageDataVariant const> GetImageDataSPtr() const override { return m_plane; }
    ImageData<T> & GetImageData() override { return *m_plane; }
    ImageData<T> const & GetImageData() const override { return *m_plane; }
    void Assign(ImageVariant const & source) override;
    bool HasMask() const override;

    std::shared_ptr<ImageData<T>> GetTypedImageDataSPtr() const { return m_plane; }
    T GetPixel(unsigned int x, unsigned int y) const { return m_plane->GetPixel(x, y); }
    T & GetPixel(unsigned int x, unsigned int y) { return m_plane->GetPixel(x, y); }
    void SetPixel(unsigned int x, unsigned int y, T value) { m_plane->SetPixel(x, y, value); }

    // The shared parts, for containers that make several images hold the same objects.
    std::shared_ptr<LinearScale> GetScaleXSPtr() const { return m_scaleX; }
    std::shared_ptr<LinearScale> GetScaleYSPtr() const { return m_scaleY; }
    std::shared_ptr<LinearScale> GetScaleISPtr() const { return m_scaleI; }
    std::shared_ptr<C_Attributes> GetAttributesSPtr() const { return m_attributes; }
    std::shared_ptr<ScalarFields> GetScalarFieldsSPtr() const { return m_scalarFields; }
    //! Holds the given objects instead of its own; none may be null.
    void ShareScales(std::shared_ptr<LinearScale> scaleX, std::shared_ptr<LinearScale> scaleY,
                     std::shared_ptr<LinearScale> scaleI);
    void ShareAttributes(std::shared_ptr<C_Attributes> attributes);

private:
    std::shared_ptr<ImageData<T>> m_plane;
    std::unique_ptr<MaskStrategy> m_mask;
    std::shared_ptr<LinearScale> m_scaleX;
    std::shared_ptr<LinearScale> m_scaleY;
    std::shared_ptr<LinearScale> m_scaleI;
    std::shared_ptr<C_Attributes> m_attributes;
    std::shared_ptr<ScalarFields> m_scalarFields;
};

#define DATAOBJECTS_DECLARE_IMAGE(T) extern template class Image<T>;
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_DECLARE_IMAGE)
#undef DATAOBJECTS_DECLARE_IMAGE

} // namespace DataObjects
