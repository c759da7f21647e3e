#pragma once

namespace Basis {

//! A closed interval [minimum, maximum]. No order is enforced: a range whose minimum exceeds
//! its maximum is invalid and contains nothing.
template <class T>
class C_RangeT
{
public:
    constexpr C_RangeT() = default;
    constexpr C_RangeT(T minimum, T maximum) : m_min(minimum), m_max(maximum) {}

    constexpr T GetMin() const { return m_min; }
    constexpr T GetMax() const { return m_max; }
    constexpr void SetMin(T value) { m_min = value; }
    constexpr void SetMax(T value) { m_max = value; }
    constexpr void Set(T minimum, T maximum)
    {
        m_min = minimum;
        m_max = maximum;
    }

    constexpr bool IsValid() const { return m_min <= m_max; }
    constexpr T GetSize() const { return m_max - m_min; }
    constexpr bool Contains(T value) const { return m_min <= value && value <= m_max; }
    constexpr bool Overlaps(C_RangeT const & o) const { return IsValid() && o.IsValid() && m_min <= o.m_max && o.m_min <= m_max; }

    friend constexpr bool operator==(C_RangeT const & a, C_RangeT const & b) { return a.m_min == b.m_min && a.m_max == b.m_max; }
    friend constexpr bool operator!=(C_RangeT const & a, C_RangeT const & b) { return !(a == b); }

private:
    T m_min{};
    T m_max{};
};

} // namespace Basis
