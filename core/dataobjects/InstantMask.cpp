#include "dataobjects/InstantMask.h"

#include "basis/Throw.h"
#include "dataobjects/Mask.h"

#include <utility>

namespace DataObjects {

namespace {

std::shared_ptr<Mask> CheckedMask(std::shared_ptr<Mask> mask)
{
    if (!mask)
        BASIS_THROW(Basis::VerificationFailed, "Mask is null");
    return mask;
}

} // namespace

InstantMask::InstantMask(Mask && mask)
    : MaskStrategy(std::make_shared<Mask>(std::move(mask)))
{
}

InstantMask::InstantMask(unsigned int width, unsigned int height, bool valid)
    : MaskStrategy(valid ? std::make_shared<Mask>(width, height, true) : std::make_shared<Mask>(width, height))
{
}

InstantMask::InstantMask(std::shared_ptr<Mask> mask, bool valid)
    : MaskStrategy(CheckedMask(std::move(mask)))
{
    if (valid)
        *m_mask = true;
}

Math::Size2T<unsigned int> InstantMask::GetSize() const
{
    return m_mask->GetSize();
}

} // namespace DataObjects
