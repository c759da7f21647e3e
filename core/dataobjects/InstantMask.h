#pragma once

#include "dataobjects/MaskStrategy.h"

namespace DataObjects {

//! A mask strategy whose mask exists from construction.
class InstantMask : public MaskStrategy
{
public:
    //! Shares a new mask that takes the given one over.
    explicit InstantMask(Mask && mask);
    //! A new mask; with valid every pixel is valid, otherwise it is left uninitialised.
    InstantMask(unsigned int width, unsigned int height, bool valid);
    //! Shares the mask; with valid every pixel of it is set valid, for all its holders.
    InstantMask(std::shared_ptr<Mask> mask, bool valid);

    InstantMask(InstantMask const &) = default;
    InstantMask(InstantMask &&) noexcept = default;
    InstantMask & operator=(InstantMask const &) = default;
    InstantMask & operator=(InstantMask &&) noexcept = default;

    bool IsMaskSpawned() const override { return true; }
    Math::Size2T<unsigned int> GetSize() const override;

protected:
    std::shared_ptr<Mask> sptr_internal() override { return m_mask; }
    Mask & ref_internal() override { return *m_mask; }
    Mask const & ref_internal() const override { return *m_mask; }
};

} // namespace DataObjects
