#include "basis/AlignedMemory.h"

namespace Basis {

void * AllocateAligned(std::size_t bytes)
{
    return ::operator new(bytes, std::align_val_t(MemoryAlignment));
}

void FreeAligned(void * block) noexcept
{
    ::operator delete(block, std::align_val_t(MemoryAlignment));
}

} // namespace Basis
