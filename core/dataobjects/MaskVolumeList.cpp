#include "dataobjects/MaskVolumeList.h"

#include "basis/Throw.h"

#include <utility>

namespace DataObjects {

namespace {

void CheckListSize(std::size_t count)
{
    if (count == 0)
        BASIS_THROW(Basis::VerificationFailed, "List size of mask volumes not allowed to be zero");
}

} // namespace

MaskVolumeList::MaskVolumeList(Math::Size3T<unsigned int> const & size, unsigned int count)
{
    CheckListSize(count);
    m_volumes.reserve(count);
    for (unsigned int i = 0; i < count; ++i)
        m_volumes.push_back(std::make_shared<MaskVolume>(size));
}

MaskVolumeList::MaskVolumeList(unsigned int width, unsigned int height, unsigned int depth, unsigned int count)
    : MaskVolumeList(Math::Size3T<unsigned int>(width, height, depth), count)
{
}

MaskVolumeList::MaskVolumeList(std::vector<MaskVolume> && volumes)
{
    CheckListSize(volumes.size());
    m_volumes.reserve(volumes.size());
    for (auto & volume : volumes)
        m_volumes.push_back(std::make_shared<MaskVolume>(std::move(volume)));
}

MaskVolumeList::MaskVolumeList(std::vector<std::shared_ptr<MaskVolume>> const & volumes)
    : m_volumes(volumes)
{
    CheckListSize(volumes.size());
}

MaskVolumeList::MaskVolumeList(MaskVolumeList const & other)
{
    m_volumes.reserve(other.m_volumes.size());
    for (auto const & volume : other.m_volumes)
        m_volumes.push_back(std::make_shared<MaskVolume>(*volume));
}

MaskVolumeList & MaskVolumeList::operator=(MaskVolumeList const & other)
{
    if (this == &other)
        return *this;
    if (m_volumes.size() != other.m_volumes.size())
        BASIS_THROW(Basis::VerificationFailed, "Mask volume list have a different size");
    for (std::size_t i = 0; i < m_volumes.size(); ++i) {
        if (m_volumes[i]->GetSize() != other.m_volumes[i]->GetSize())
            BASIS_THROW(Basis::VerificationFailed, "Mask volume list have a different size");
        *m_volumes[i] = *other.m_volumes[i];
    }
    return *this;
}

MaskVolumeList & MaskVolumeList::operator=(bool valid)
{
    for (auto & volume : m_volumes)
        *volume = valid;
    return *this;
}

void MaskVolumeList::DeepCopyFrom(MaskVolumeList const & other)
{
    *this = other;
}

void MaskVolumeList::MoveFrom(MaskVolumeList && other) noexcept
{
    *this = std::move(other);
}

MaskVolumeList & MaskVolumeList::operator&=(MaskVolumeList const & other)
{
    if (m_volumes.size() != other.m_volumes.size())
        BASIS_THROW(Basis::VerificationFailed, "Size of mask volumes is different");
    for (std::size_t i = 0; i < m_volumes.size(); ++i)
        *m_volumes[i] &= *other.m_volumes[i];
    return *this;
}

} // namespace DataObjects
