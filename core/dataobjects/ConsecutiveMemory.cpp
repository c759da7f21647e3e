#include "dataobjects/ConsecutiveMemory.h"

#include "basis/AlignedMemory.h"

#include <limits>

namespace DataObjects {

namespace {
// The element count, saturated, so an absurd request fails in the allocator.
std::uint64_t TotalElements(std::uint64_t elementsPerPlane, unsigned int planeCount)
{
    std::uint64_t total = 0;
    return __builtin_mul_overflow(elementsPerPlane, std::uint64_t(planeCount), &total)
               ? std::numeric_limits<std::uint64_t>::max()
               : total;
}
} // namespace

template <class T>
ConsecutiveMemory<T>::ConsecutiveMemory(std::uint64_t elementsPerPlane, unsigned int planeCount)
    : m_data(Basis::AllocateElements<T>(TotalElements(elementsPerPlane, planeCount)))
    , m_elementsPerPlane(elementsPerPlane)
    , m_planeCount(planeCount)
{
}

template <class T>
ConsecutiveMemory<T>::~ConsecutiveMemory()
{
    Basis::FreeAligned(m_data);
}

#define DATAOBJECTS_INSTANTIATE_CONSECUTIVE_MEMORY(T) template class ConsecutiveMemory<T>;
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_INSTANTIATE_CONSECUTIVE_MEMORY)

} // namespace DataObjects
