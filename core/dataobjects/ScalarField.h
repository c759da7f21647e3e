#pragma once

#include "dataobjects/ImageData.h"
#include "dataobjects/LinearScale.h"
#include "dataobjects/ScalarFieldVariant.h"

namespace DataObjects {

//! A scalar field of one pixel type: one ImageData<T> plane, owning or viewing (a field read
//! from a frame views the frame's plane).
template <class T>
class ScalarField : public ScalarFieldVariant
{
public:
    using value_type = T;

    //! An owning field, left uninitialised.
    explicit ScalarField(Math::Size2T<unsigned int> const & size);
    ScalarField(unsigned int width, unsigned int height);
    //! An owning field with every element set to value.
    ScalarField(Math::Size2T<unsigned int> const & size, T value);
    //! Takes the plane over, view or not.
    explicit ScalarField(ImageData<T> && plane);

    //! Always an owning copy.
    ScalarField(ScalarField const & other) = default;
    ScalarField(ScalarField && other) noexcept = default;
    ~ScalarField() override;
    //! Copies the values; the sizes must be equal.
    ScalarField & operator=(ScalarField const & other) = default;
    ScalarField & operator=(ScalarField && other) = default;

    Math::Size2T<unsigned int> GetSize() const override { return m_plane.GetSize(); }
    unsigned int GetWidth() const override { return m_plane.GetWidth(); }
    unsigned int GetHeight() const override { return m_plane.GetHeight(); }
    std::unique_ptr<ScalarFieldVariant> CreateCopy() const override;
    std::unique_ptr<ScalarFieldVariant> MoveToNew() override;
    void Assign(ScalarFieldVariant const & source) override;
    FrameStore::E_DataType GetDataType() const override { return FrameStore::GetDataType<T>(); }
    ImageDataVariant & GetImageDataVariant() override { return m_plane; }
    ImageDataVariant const & GetImageDataVariant() const override { return m_plane; }
    LinearScale & GetScale() override { return m_scale; }
    LinearScale const & GetScale() const override { return m_scale; }
    void SetScale(LinearScale const & scale) override { m_scale = scale; }

    ImageData<T> & GetImageData() { return m_plane; }
    ImageData<T> const & GetImageData() const { return m_plane; }
    T GetValue(unsigned int x, unsigned int y) const { return m_plane(x, y); }
    void SetValue(unsigned int x, unsigned int y, T value) { m_plane(x, y) = value; }

private:
    ImageData<T> m_plane;
    LinearScale m_scale;
};

#define DATAOBJECTS_DECLARE_SCALAR_FIELD(T) extern template class ScalarField<T>;
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_DECLARE_SCALAR_FIELD)
#undef DATAOBJECTS_DECLARE_SCALAR_FIELD

} // namespace DataObjects
