#pragma once

#include "math/Size.h"

#include <memory>

namespace DataObjects {

class Mask;

//! How an image reaches its mask: one that exists from the start (InstantMask) or one made on
//! first request (LazyMask), so that large buffers of images without masks cost no mask memory.
//! Copies share the mask; they never copy it.
class MaskStrategy
{
public:
    explicit MaskStrategy(std::shared_ptr<Mask> mask);
    virtual ~MaskStrategy();

    virtual bool IsMaskSpawned() const = 0;
    //! The size of the mask, known without making it.
    virtual Math::Size2T<unsigned int> GetSize() const = 0;
    //! The mask, made first if the strategy makes masks on demand.
    Mask & ref();
    Mask const & ref() const;
    std::shared_ptr<Mask> sptr();

protected:
    MaskStrategy(MaskStrategy const &) = default;
    MaskStrategy(MaskStrategy &&) noexcept = default;
    MaskStrategy & operator=(MaskStrategy const &) = default;
    MaskStrategy & operator=(MaskStrategy &&) noexcept = default;

    virtual std::shared_ptr<Mask> sptr_internal() = 0;
    virtual Mask & ref_internal() = 0;
    virtual Mask const & ref_internal() const = 0;

    //! Read only once IsMaskSpawned() is true, which orders the read after the write that set it.
    //! Mutable because spawning on demand is logically const.
    mutable std::shared_ptr<Mask> m_mask;
};

} // namespace DataObjects
