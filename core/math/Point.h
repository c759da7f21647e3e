#pragma once

namespace Math {

//! A position in a plane. Plain value type.
template <class T>
struct Point2T
{
    T x{};
    T y{};

    constexpr Point2T() = default;
    constexpr Point2T(T px, T py) : x(px), y(py) {}

    friend constexpr bool operator==(Point2T const & a, Point2T const & b) { return a.x == b.x && a.y == b.y; }
    friend constexpr bool operator!=(Point2T const & a, Point2T const & b) { return !(a == b); }
};

//! A position in a volume. Plain value type.
template <class T>
struct Point3T
{
    T x{};
    T y{};
    T z{};

    constexpr Point3T() = default;
    constexpr Point3T(T px, T py, T pz) : x(px), y(py), z(pz) {}

    friend constexpr bool operator==(Point3T const & a, Point3T const & b) { return a.x == b.x && a.y == b.y && a.z == b.z; }
    friend constexpr bool operator!=(Point3T const & a, Point3T const & b) { return !(a == b); }
};

} // namespace Math
