#include "dataobjects/MaskStrategy.h"

#include "dataobjects/Mask.h"

#include <utility>

namespace DataObjects {

MaskStrategy::MaskStrategy(std::shared_ptr<Mask> mask)
    : m_mask(std::move(mask))
{
}

MaskStrategy::~MaskStrategy() = default;

Mask & MaskStrategy::ref()
{
    return IsMaskSpawned() ? *m_mask : ref_internal();
}

Mask const & MaskStrategy::ref() const
{
    return IsMaskSpawned() ? *m_mask : ref_internal();
}

std::shared_ptr<Mask> MaskStrategy::sptr()
{
    return IsMaskSpawned() ? m_mask : sptr_internal();
}

} // namespace DataObjects
