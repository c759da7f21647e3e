#pragma once

#include "dataobjects/ImageMemory.h"
#include "dataobjects/PixelTypes.h"

#include <cstdint>

namespace DataObjects {

//! One owned block of pixels for several planes of equal size, plane k starting at element
//! k * elementsPerPlane. Shared through std::shared_ptr by the planes laid over it; the block is
//! released when the last holder goes.
template <class T>
class ConsecutiveMemory final : public I_ImageMemory
{
public:
    //! Allocates elementsPerPlane * planeCount uninitialised elements.
    ConsecutiveMemory(std::uint64_t elementsPerPlane, unsigned int planeCount);
    ~ConsecutiveMemory() override;
    ConsecutiveMemory(ConsecutiveMemory const &) = delete;
    ConsecutiveMemory & operator=(ConsecutiveMemory const &) = delete;

    T * GetData() const { return m_data; }
    //! The first element of plane k; unchecked.
    T * GetPlane(unsigned int k) const { return m_data + k * m_elementsPerPlane; }
    std::uint64_t GetElementsPerPlane() const { return m_elementsPerPlane; }
    std::uint64_t GetElementCount() const { return m_elementsPerPlane * m_planeCount; }

    void * GetAddress() const override { return m_data; }
    //! Nothing to hand back: the block lives as long as its last owner.
    void Release() override {}

private:
    T * m_data;
    std::uint64_t m_elementsPerPlane;
    unsigned int m_planeCount;
};

#define DATAOBJECTS_DECLARE_CONSECUTIVE_MEMORY(T) extern template class ConsecutiveMemory<T>;
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_DECLARE_CONSECUTIVE_MEMORY)
#undef DATAOBJECTS_DECLARE_CONSECUTIVE_MEMORY

} // namespace DataObjects
