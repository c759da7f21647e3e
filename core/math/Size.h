#pragma once

#include <cstdint>

namespace Math {

//! Width and height of a plane. Plain value type.
template <class T>
struct Size2T
{
    T width{};
    T height{};

    constexpr Size2T() = default;
    constexpr Size2T(T w, T h) : width(w), height(h) {}

    friend constexpr bool operator==(Size2T const & a, Size2T const & b) { return a.width == b.width && a.height == b.height; }
    friend constexpr bool operator!=(Size2T const & a, Size2T const & b) { return !(a == b); }
};

//! Width, height and depth (number of planes) of a volume. Plain value type.
template <class T>
struct Size3T
{
    T width{};
    T height{};
    T depth{};

    constexpr Size3T() = default;
    constexpr Size3T(T w, T h, T d) : width(w), height(h), depth(d) {}

    friend constexpr bool operator==(Size3T const & a, Size3T const & b)
    {
        return a.width == b.width && a.height == b.height && a.depth == b.depth;
    }
    friend constexpr bool operator!=(Size3T const & a, Size3T const & b) { return !(a == b); }
};

//! Number of elements of a plane: the 64-bit product of the two 32-bit fields, so it cannot wrap.
constexpr std::uint64_t ElementCount(Size2T<unsigned int> const & size)
{
    return std::uint64_t(size.width) * size.height;
}

//! Number of elements of a volume. Can only exceed 64 bits for absurd sizes, which nobody allocates.
constexpr std::uint64_t ElementCount(Size3T<unsigned int> const & size)
{
    return std::uint64_t(size.width) * size.height * size.depth;
}

} // namespace Math
