#pragma once

#include "dataobjects/MaskVolume.h"

#include <memory>
#include <vector>

namespace DataObjects {

//! One mask volume per frame of an image buffer; never empty.
class MaskVolumeList
{
public:
    //! count new volumes of the size.
    MaskVolumeList(Math::Size3T<unsigned int> const & size, unsigned int count);
    MaskVolumeList(unsigned int width, unsigned int height, unsigned int depth, unsigned int count);
    explicit MaskVolumeList(std::vector<MaskVolume> && volumes);
    //! Shares the volumes.
    explicit MaskVolumeList(std::vector<std::shared_ptr<MaskVolume>> const & volumes);

    //! Deep: every volume copied.
    MaskVolumeList(MaskVolumeList const & other);
    MaskVolumeList(MaskVolumeList && other) noexcept = default;
    //! Copies volume by volume into the existing ones. The sizes are checked pair by pair while
    //! copying, so a mismatch in a later pair leaves the earlier volumes already copied.
    MaskVolumeList & operator=(MaskVolumeList const & other);
    MaskVolumeList & operator=(MaskVolumeList && other) noexcept = default;
    MaskVolumeList & operator=(bool valid);
    void DeepCopyFrom(MaskVolumeList const & other);
    void MoveFrom(MaskVolumeList && other) noexcept;

    //! Volume-wise &=; lists and volumes must have the same sizes.
    MaskVolumeList & operator&=(MaskVolumeList const & other);

    MaskVolume & operator[](unsigned int index) { return *m_volumes[index]; }
    MaskVolume const & operator[](unsigned int index) const { return *m_volumes[index]; }
    MaskVolume & GetMaskVolume(unsigned int index) { return *m_volumes[index]; }
    MaskVolume const & GetMaskVolume(unsigned int index) const { return *m_volumes[index]; }
    unsigned int GetListSize() const { return unsigned(m_volumes.size()); }
    // Of the first volume.
    Math::Size3T<unsigned int> const & GetVolumeSize() const { return m_volumes.front()->GetSize(); }
    unsigned int GetWidth() const { return GetVolumeSize().width; }
    unsigned int GetHeight() const { return GetVolumeSize().height; }
    unsigned int GetDepth() const { return GetVolumeSize().depth; }

private:
    std::vector<std::shared_ptr<MaskVolume>> m_volumes;
};

} // namespace DataObjects
