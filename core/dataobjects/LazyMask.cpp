#include "dataobjects/LazyMask.h"

#include "dataobjects/Mask.h"

namespace DataObjects {

LazyMask::LazyMask(unsigned int width, unsigned int height, bool valid)
    : MaskStrategy(nullptr)
    , m_width(width)
    , m_height(height)
    , m_valid(valid)
{
}

LazyMask::LazyMask(LazyMask const & other)
    : MaskStrategy(nullptr)
    , m_width(other.m_width)
    , m_height(other.m_height)
    , m_valid(other.m_valid)
{
    // Under the source's lock, so a copy taken while the source spawns sees either no mask or
    // the finished one.
    std::lock_guard<std::mutex> lock(other.m_mutex);
    m_mask = other.m_mask;
    m_spawned.store(other.m_spawned.load());
}

LazyMask & LazyMask::operator=(LazyMask const & other)
{
    if (this != &other) {
        std::scoped_lock lock(m_mutex, other.m_mutex);
        m_width = other.m_width;
        m_height = other.m_height;
        m_valid = other.m_valid;
        m_mask = other.m_mask;
        m_spawned.store(other.m_spawned.load());
    }
    return *this;
}

void LazyMask::SpawnMaskIfNotYetDone() const
{
    if (m_spawned.load(std::memory_order_acquire))
        return;
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_spawned.load(std::memory_order_relaxed))
        return;
    auto mask = std::make_shared<Mask>(m_width, m_height);
    if (m_valid)
        *mask = true;
    m_mask = std::move(mask);
    m_spawned.exchange(true, std::memory_order_acq_rel);
}

std::shared_ptr<Mask> LazyMask::sptr_internal()
{
    SpawnMaskIfNotYetDone();
    return m_mask;
}

Mask & LazyMask::ref_internal()
{
    SpawnMaskIfNotYetDone();
    return *m_mask;
}

Mask const & LazyMask::ref_internal() const
{
    SpawnMaskIfNotYetDone();
    return *m_mask;
}

} // namespace DataObjects
