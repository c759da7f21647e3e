#include "dataobjects/MaskVolume.h"

#include "basis/Throw.h"

#include <utility>

namespace DataObjects {

namespace {

std::vector<std::shared_ptr<Mask>> CheckedPlanes(std::vector<std::shared_ptr<Mask>> planes)
{
    if (planes.empty())
        BASIS_THROW(Basis::VerificationFailed, "At least 1 plane required");
    return planes;
}

} // namespace

MaskVolume::MaskVolume(Math::Size3T<unsigned int> const & size)
    : m_size(size)
{
    if (size.depth == 0)
        BASIS_THROW(Basis::VerificationFailed, "At least 1 plane required.");
    m_planes.reserve(size.depth);
    for (unsigned int z = 0; z < size.depth; ++z)
        m_planes.push_back(std::make_shared<Mask>(size.width, size.height));
}

MaskVolume::MaskVolume(unsigned int width, unsigned int height, unsigned int depth)
    : MaskVolume(Math::Size3T<unsigned int>(width, height, depth))
{
}

MaskVolume::MaskVolume(std::vector<std::shared_ptr<Mask>> const & planes)
    : m_planes(CheckedPlanes(planes))
    , m_size(m_planes.front()->GetWidth(), m_planes.front()->GetHeight(), unsigned(m_planes.size()))
{
}

MaskVolume::MaskVolume(Mask const & mask)
    : MaskVolume(std::make_shared<Mask>(mask))
{
}

MaskVolume::MaskVolume(Mask && mask)
    : MaskVolume(std::make_shared<Mask>(std::move(mask)))
{
}

MaskVolume::MaskVolume(std::shared_ptr<Mask> mask)
    : MaskVolume(std::vector<std::shared_ptr<Mask>>{std::move(mask)})
{
}

MaskVolume::MaskVolume(MaskVolume const & other)
    : m_size(other.m_size)
{
    m_planes.reserve(other.m_planes.size());
    for (auto const & plane : other.m_planes)
        m_planes.push_back(std::make_shared<Mask>(*plane));
}

MaskVolume::MaskVolume(MaskVolume && other) noexcept
    : m_planes(std::move(other.m_planes))
    , m_size(std::exchange(other.m_size, {}))
{
}

MaskVolume & MaskVolume::operator=(MaskVolume && other) noexcept
{
    if (this != &other) {
        m_planes = std::move(other.m_planes);
        m_size = std::exchange(other.m_size, {});
    }
    return *this;
}

MaskVolume & MaskVolume::operator=(MaskVolume const & other)
{
    DeepCopyFrom(other);
    return *this;
}

MaskVolume & MaskVolume::operator=(bool valid)
{
    for (auto & plane : m_planes)
        *plane = valid;
    return *this;
}

void MaskVolume::DeepCopyFrom(MaskVolume const & other)
{
    if (this == &other)
        return;
    if (m_size != other.m_size)
        BASIS_THROW(Basis::VerificationFailed, "Mask volume has a different size");
    for (std::size_t z = 0; z < m_planes.size(); ++z)
        m_planes[z]->DeepCopyFrom(*other.m_planes[z]);
}

void MaskVolume::MoveFrom(MaskVolume && other) noexcept
{
    *this = std::move(other);
}

MaskVolume & MaskVolume::operator&=(MaskVolume const & other)
{
    if (m_size != other.m_size)
        BASIS_THROW(Basis::VerificationFailed, "Size of mask volumes is different");
    for (std::size_t z = 0; z < m_planes.size(); ++z)
        *m_planes[z] &= *other.m_planes[z];
    return *this;
}

} // namespace DataObjects
