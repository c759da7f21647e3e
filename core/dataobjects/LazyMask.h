#pragma once

#include "dataobjects/MaskStrategy.h"

#include <atomic>
#include <cstdint>
#include <mutex>

namespace DataObjects {

//! A mask strategy that makes its mask on the first request. Several threads may ask at once:
//! exactly one makes the mask and all get the same one.
class LazyMask : public MaskStrategy
{
public:
    //! Remembers the size and the initial state; no mask yet. With valid false a spawned mask is
    //! left uninitialised.
    LazyMask(unsigned int width, unsigned int height, bool valid);

    LazyMask(LazyMask const & other);
    LazyMask & operator=(LazyMask const & other);

    bool IsMaskSpawned() const override { return m_spawned.load(std::memory_order_acquire); }
    Math::Size2T<unsigned int> GetSize() const override { return {m_width, m_height}; }

protected:
    std::shared_ptr<Mask> sptr_internal() override;
    Mask & ref_internal() override;
    Mask const & ref_internal() const override;

private:
    void SpawnMaskIfNotYetDone() const;

    std::uint32_t m_width;
    std::uint32_t m_height;
    bool m_valid;
    mutable std::mutex m_mutex;
    mutable std::atomic<bool> m_spawned{false};
};

} // namespace DataObjects
