#pragma once

#include "math/Point.h"

#include <algorithm>
#include <limits>
#include <type_traits>

namespace Math {

//! Axis-aligned box in three dimensions.
//!
//! A new box is empty: its minimum lies at the largest value of T and its maximum at the
//! negative of that, so that the first point it is extended by becomes both corners.
template <class T>
class BoundingBoxT
{
    static_assert(std::is_signed_v<T>, "an empty box needs the negative of the largest value");

public:
    constexpr BoundingBoxT() = default;
    constexpr BoundingBoxT(Point3T<T> const & minimum, Point3T<T> const & maximum) : m_min(minimum), m_max(maximum) {}

    constexpr Point3T<T> const & GetMin() const { return m_min; }
    constexpr Point3T<T> const & GetMax() const { return m_max; }

    //! True while no point lies inside, that is while the minimum exceeds the maximum on some axis.
    constexpr bool IsEmpty() const { return m_min.x > m_max.x || m_min.y > m_max.y || m_min.z > m_max.z; }

    constexpr bool Contains(Point3T<T> const & p) const
    {
        return p.x >= m_min.x && p.x <= m_max.x && p.y >= m_min.y && p.y <= m_max.y && p.z >= m_min.z && p.z <= m_max.z;
    }

    constexpr void Extend(Point3T<T> const & p)
    {
        m_min = {std::min(m_min.x, p.x), std::min(m_min.y, p.y), std::min(m_min.z, p.z)};
        m_max = {std::max(m_max.x, p.x), std::max(m_max.y, p.y), std::max(m_max.z, p.z)};
    }

    constexpr void Extend(BoundingBoxT const & other)
    {
        if (!other.IsEmpty()) {
            Extend(other.m_min);
            Extend(other.m_max);
        }
    }

    friend constexpr bool operator==(BoundingBoxT const & a, BoundingBoxT const & b) { return a.m_min == b.m_min && a.m_max == b.m_max; }
    friend constexpr bool operator!=(BoundingBoxT const & a, BoundingBoxT const & b) { return !(a == b); }

private:
    static constexpr T Largest = std::numeric_limits<T>::max();
    Point3T<T> m_min{Largest, Largest, Largest};
    Point3T<T> m_max{-Largest, -Largest, -Largest};
};

} // namespace Math
