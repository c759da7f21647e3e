#pragma once

#include "dataobjects/Mask.h"
#include "math/Point.h"
#include "math/Size.h"

#include <memory>
#include <vector>

namespace DataObjects {

//! The mask of an image volume: one Mask per z plane, shared so that a plane can be the mask of
//! an image at the same time.
class MaskVolume
{
public:
    //! depth new uninitialised masks of width by height.
    explicit MaskVolume(Math::Size3T<unsigned int> const & size);
    MaskVolume(unsigned int width, unsigned int height, unsigned int depth);
    //! Shares the masks; width and height are the first mask's, the others are not compared.
    explicit MaskVolume(std::vector<std::shared_ptr<Mask>> const & planes);
    // A volume of depth 1 that copies, takes over or shares the mask.
    explicit MaskVolume(Mask const & mask);
    explicit MaskVolume(Mask && mask);
    explicit MaskVolume(std::shared_ptr<Mask> mask);

    //! Deep: every plane becomes a new owning mask.
    MaskVolume(MaskVolume const & other);
    //! Takes the planes; the source is left of size 0.
    MaskVolume(MaskVolume && other) noexcept;
    //! Copies into the existing planes (views keep writing their memory); sizes must be equal.
    MaskVolume & operator=(MaskVolume const & other);
    MaskVolume & operator=(MaskVolume && other) noexcept;
    MaskVolume & operator=(bool valid);
    void DeepCopyFrom(MaskVolume const & other);
    void MoveFrom(MaskVolume && other) noexcept;

    //! Plane-wise &=; the volumes must have the same size.
    MaskVolume & operator&=(MaskVolume const & other);

    // Unchecked.
    bool IsValid(unsigned int x, unsigned int y, unsigned int z) const { return m_planes[z]->IsValid(x, y); }
    bool IsValid(Math::Point3T<int> const & p) const { return IsValid(unsigned(p.x), unsigned(p.y), unsigned(p.z)); }
    void SetValid(unsigned int x, unsigned int y, unsigned int z, bool valid) { m_planes[z]->SetValid(x, y, valid); }
    void SetValid(Math::Point3T<int> const & p, bool valid) { SetValid(unsigned(p.x), unsigned(p.y), unsigned(p.z), valid); }

    Mask & GetMask(unsigned int z) { return *m_planes[z]; }
    Mask const & GetMask(unsigned int z) const { return *m_planes[z]; }
    Math::Size3T<unsigned int> const & GetSize() const { return m_size; }
    unsigned int GetWidth() const { return m_size.width; }
    unsigned int GetHeight() const { return m_size.height; }
    unsigned int GetDepth() const { return m_size.depth; }

private:
    std::vector<std::shared_ptr<Mask>> m_planes;
    Math::Size3T<unsigned int> m_size;
};

} // namespace DataObjects
