#include "basis/AlignedMemory.h"

#include <cstddef>
#include <limits>

namespace Basis {

void * AllocateAligned(std::size_t bytes)
{
    // The aligned operator new of libstdc++ rounds the size up to the alignment, which wraps to
    // a tiny block for sizes near SIZE_MAX; no block can exceed PTRDIFF_MAX anyway.
    if (bytes > std::size_t(std::numeric_limits<std::ptrdiff_t>::max()))
        throw std::bad_alloc();
    return ::operator new(bytes, std::align_val_t(MemoryAlignment));
}

void FreeAligned(void * block) noexcept
{
    ::operator delete(block, std::align_val_t(MemoryAlignment));
}

} // namespace Basis
