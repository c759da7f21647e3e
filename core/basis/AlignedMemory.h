#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>

namespace Basis {

//! Alignment of every pixel block: a cache line, and wide enough for any vector unit.
constexpr std::size_t MemoryAlignment = 64;

//! Bytes needed for count elements of elementSize bytes, computed without wrapping. A product
//! that does not fit 64 bits gives the largest size_t, so the allocation fails cleanly instead
//! of handing out a block that is too small.
constexpr std::size_t ByteCount(std::uint64_t count, std::size_t elementSize) noexcept
{
    std::size_t bytes = 0;
    return __builtin_mul_overflow(count, elementSize, &bytes) ? std::numeric_limits<std::size_t>::max() : bytes;
}

//! Allocates an uninitialised block aligned to MemoryAlignment; throws std::bad_alloc.
//! All pixel memory of FrameStore and DataObjects comes from here and goes back through
//! FreeAligned, so a block can change owner between the libraries without a copy.
void * AllocateAligned(std::size_t bytes);
void FreeAligned(void * block) noexcept;

template <class T>
T * AllocateElements(std::uint64_t count)
{
    return static_cast<T *>(AllocateAligned(ByteCount(count, sizeof(T))));
}

struct AlignedDeleter
{
    void operator()(void * block) const noexcept { FreeAligned(block); }
};

//! An owned aligned block of T.
template <class T>
using AlignedArray = std::unique_ptr<T[], AlignedDeleter>;

template <class T>
AlignedArray<T> MakeAlignedArray(std::uint64_t count)
{
    return AlignedArray<T>(AllocateElements<T>(count));
}

//! Standard allocator over the aligned blocks, for containers of pixels.
template <class T>
struct AlignedAllocator
{
    using value_type = T;

    AlignedAllocator() = default;
    template <class U>
    constexpr AlignedAllocator(AlignedAllocator<U> const &) noexcept {}

    T * allocate(std::size_t n) { return AllocateElements<T>(n); }
    void deallocate(T * p, std::size_t) noexcept { FreeAligned(p); }

    template <class U>
    friend constexpr bool operator==(AlignedAllocator const &, AlignedAllocator<U> const &) { return true; }
    template <class U>
    friend constexpr bool operator!=(AlignedAllocator const &, AlignedAllocator<U> const &) { return false; }
};

} // namespace Basis
