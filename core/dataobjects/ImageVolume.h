#pragma once

#include "dataobjects/Image.h"
#include "dataobjects/ImageVolumeVariant.h"
#include "math/Point.h"

#include <memory>
#include <vector>

namespace DataObjects {

//! A stack of z-planes of one size, each an Image<T>, with a z scale. All planes hold the very
//! same x, y and intensity scale objects and attribute set, so a scale or attribute set on any
//! plane is the volume's. Never empty.
//!
//! Copies are deep; assignment converts contents plane by plane and keeps every held object.
template <class T>
class ImageVolume : public ImageVolumeVariant
{
public:
    using value_type = T;

    //! depth new planes, each with a mask made now: all valid, or uninitialised when valid is
    //! false; one new attribute set, default scales.
    ImageVolume(Math::Size3T<unsigned int> const & size, bool valid);
    ImageVolume(unsigned int width, unsigned int height, unsigned int depth, bool valid);
    ImageVolume(Math::Size3T<unsigned int> const & size, T value, bool valid);
    // A volume of one plane.
    ImageVolume(std::shared_ptr<Image<T>> plane, std::shared_ptr<LinearScale> scaleZ);
    ImageVolume(Image<T> && plane, LinearScale const & scaleZ);
    ImageVolume(Image<T> && plane, LinearScale && scaleZ);
    ImageVolume(Image<T> && plane, std::shared_ptr<LinearScale> scaleZ);
    //! Shares the planes after checking them against plane 0: no null plane, equal x, y and
    //! intensity scales, size and scalar-field names. The planes then hold plane 0's scales and
    //! attribute set.
    ImageVolume(std::vector<std::shared_ptr<Image<T>>> const & planes, std::shared_ptr<LinearScale> scaleZ);
    //! As above, all planes holding the given attribute set.
    ImageVolume(std::vector<std::shared_ptr<Image<T>>> const & planes, std::shared_ptr<C_Attributes> attributes,
                std::shared_ptr<LinearScale> scaleZ);
    //! Moves the images out of the vector.
    ImageVolume(std::vector<Image<T>> & planes, std::shared_ptr<C_Attributes> attributes,
                std::shared_ptr<LinearScale> scaleZ);

    ImageVolume(ImageVolume const & other);
    ImageVolume(ImageVolume && other) noexcept;
    ImageVolume & operator=(ImageVolume const & other);
    ImageVolume & operator=(ImageVolume && other) noexcept;
    ~ImageVolume() override;
    void MoveFrom(ImageVolume && other) noexcept;
    //! Converts plane by plane into the existing planes; the sizes must be equal.
    void DeepCopyFrom(ImageVolume const & other);

    Math::Size3T<unsigned int> GetSize() const override;
    unsigned int GetWidth() const override { return m_planes.front()->GetWidth(); }
    unsigned int GetHeight() const override { return m_planes.front()->GetHeight(); }
    unsigned int GetDepth() const override { return unsigned(m_planes.size()); }
    Image<T> & GetImageVariant(unsigned int z) override { return *m_planes[z]; }
    Image<T> const & GetImageVariant(unsigned int z) const override { return *m_planes[z]; }
    std::shared_ptr<ImageVariant> GetImageVariantSPtr(unsigned int z) override { return m_planes[z]; }
    std::shared_ptr<ImageVariant const> GetImageVariantSPtr(unsigned int z) const override { return m_planes[z]; }
    LinearScale & GetScaleX() override { return m_planes.front()->GetScaleX(); }
    LinearScale const & GetScaleX() const override { return m_planes.front()->GetScaleX(); }
    void SetScaleX(LinearScale const & scale) override { m_planes.front()->SetScaleX(scale); }
    LinearScale & GetScaleY() override { return m_planes.front()->GetScaleY(); }
    LinearScale const & GetScaleY() const override { return m_planes.front()->GetScaleY(); }
    void SetScaleY(LinearScale const & scale) override { m_planes.front()->SetScaleY(scale); }
    LinearScale & GetScaleI() override { return m_planes.front()->GetScaleI(); }
    LinearScale const & GetScaleI() const override { return m_planes.front()->GetScaleI(); }
    void SetScaleI(LinearScale const & scale) override { m_planes.front()->SetScaleI(scale); }
    LinearScale & GetScaleZ() override { return *m_scaleZ; }
    LinearScale const & GetScaleZ() const override { return *m_scaleZ; }
    void SetScaleZ(LinearScale const & scale) override;
    C_Attributes & GetAttributes() override { return m_planes.front()->GetAttributes(); }
    C_Attributes const & GetAttributes() const override { return m_planes.front()->GetAttributes(); }
    void SetAttributes(C_Attributes const & attributes) override { m_planes.front()->SetAttributes(attributes); }
    std::unique_ptr<ImageVolumeVariant> CreateCopy() const override;
    void Assign(ImageVolumeVariant const & source) override;

    // Plane z; unchecked.
    Image<T> & GetImage(unsigned int z) { return *m_planes[z]; }
    Image<T> const & GetImage(unsigned int z) const { return *m_planes[z]; }
    std::shared_ptr<Image<T>> GetImageSPtr(unsigned int z) const { return m_planes[z]; }
    std::shared_ptr<LinearScale> GetScaleZSPtr() const { return m_scaleZ; }

    // Voxel access, unchecked.
    T GetVoxel(unsigned int x, unsigned int y, unsigned int z) const { return m_planes[z]->GetPixel(x, y); }
    T GetVoxel(Math::Point3T<unsigned int> const & p) const { return GetVoxel(p.x, p.y, p.z); }
    void SetVoxel(unsigned int x, unsigned int y, unsigned int z, T value) { m_planes[z]->SetPixel(x, y, value); }
    void SetVoxel(Math::Point3T<unsigned int> const & p, T value) { SetVoxel(p.x, p.y, p.z, value); }
    bool IsMaskValid(unsigned int x, unsigned int y, unsigned int z) const;
    bool IsMaskValid(Math::Point3T<unsigned int> const & p) const { return IsMaskValid(p.x, p.y, p.z); }
    void SetMaskValid(unsigned int x, unsigned int y, unsigned int z, bool valid);
    void SetMaskValid(Math::Point3T<unsigned int> const & p, bool valid) { SetMaskValid(p.x, p.y, p.z, valid); }
    //! x below the width, y below the height and z below the depth.
    bool IsValidPosition(unsigned int x, unsigned int y, unsigned int z) const;
    bool IsValidPosition(Math::Point3T<unsigned int> const & p) const { return IsValidPosition(p.x, p.y, p.z); }

    // Every plane by the plane rules of ImageData.
    ImageVolume & operator=(T value);
    ImageVolume & operator+=(double d);
    ImageVolume & operator-=(double d);
    ImageVolume & operator*=(double d);
    ImageVolume & operator/=(double d);
    ImageVolume operator+(double d) const;
    ImageVolume operator-(double d) const;
    ImageVolume operator*(double d) const;
    ImageVolume operator/(double d) const;
    // Voxel by voxel with a volume of the same size. A voxel divided by a zero voxel becomes the
    // largest finite value of the type, or stays 0 when it is 0, as in the division of a plane
    // by zero: a zero divisor marks an undefined ratio, never a fault.
    ImageVolume & operator+=(ImageVolume const & other);
    ImageVolume & operator/=(ImageVolume const & other);
    ImageVolume operator/(ImageVolume const & other) const;

private:
    void CheckPlanes(std::shared_ptr<LinearScale> const & scaleZ) const;
    void CheckSameSize(ImageVolumeVariant const & other) const;
    void ShareScalesOverAllXYPlanes();
    void ShareAttributesForAllXYPlanes(std::shared_ptr<C_Attributes> attributes);
    template <class Operation>
    ImageVolume & ForEachPlane(Operation operation);

    std::vector<std::shared_ptr<Image<T>>> m_planes;
    std::shared_ptr<LinearScale> m_scaleZ;
};

#define DATAOBJECTS_DECLARE_IMAGE_VOLUME(T) extern template class ImageVolume<T>;
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_DECLARE_IMAGE_VOLUME)
#undef DATAOBJECTS_DECLARE_IMAGE_VOLUME

} // namespace DataObjects
