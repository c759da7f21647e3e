#pragma once

#include <cmath>

namespace Math {

//! A two-component vector (displacement, velocity, axis) with the usual arithmetic.
template <class T>
struct Vector2T
{
    T x{};
    T y{};

    constexpr Vector2T() = default;
    constexpr Vector2T(T vx, T vy) : x(vx), y(vy) {}

    constexpr Vector2T & operator+=(Vector2T const & o) { x += o.x; y += o.y; return *this; }
    constexpr Vector2T & operator-=(Vector2T const & o) { x -= o.x; y -= o.y; return *this; }
    constexpr Vector2T & operator*=(T f) { x *= f; y *= f; return *this; }
    constexpr Vector2T & operator/=(T f) { x /= f; y /= f; return *this; }

    friend constexpr Vector2T operator+(Vector2T a, Vector2T const & b) { return a += b; }
    friend constexpr Vector2T operator-(Vector2T a, Vector2T const & b) { return a -= b; }
    friend constexpr Vector2T operator*(Vector2T a, T f) { return a *= f; }
    friend constexpr Vector2T operator*(T f, Vector2T a) { return a *= f; }
    friend constexpr Vector2T operator/(Vector2T a, T f) { return a /= f; }
    friend constexpr Vector2T operator-(Vector2T const & a) { return {-a.x, -a.y}; }
    friend constexpr bool operator==(Vector2T const & a, Vector2T const & b) { return a.x == b.x && a.y == b.y; }
    friend constexpr bool operator!=(Vector2T const & a, Vector2T const & b) { return !(a == b); }

    constexpr T Dot(Vector2T const & o) const { return x * o.x + y * o.y; }
    T Length() const { return std::hypot(x, y); }
};

//! A three-component vector with the usual arithmetic.
template <class T>
struct Vector3T
{
    T x{};
    T y{};
    T z{};

    constexpr Vector3T() = default;
    constexpr Vector3T(T vx, T vy, T vz) : x(vx), y(vy), z(vz) {}

    constexpr Vector3T & operator+=(Vector3T const & o) { x += o.x; y += o.y; z += o.z; return *this; }
    constexpr Vector3T & operator-=(Vector3T const & o) { x -= o.x; y -= o.y; z -= o.z; return *this; }
    constexpr Vector3T & operator*=(T f) { x *= f; y *= f; z *= f; return *this; }
    constexpr Vector3T & operator/=(T f) { x /= f; y /= f; z /= f; return *this; }

    friend constexpr Vector3T operator+(Vector3T a, Vector3T const & b) { return a += b; }
    friend constexpr Vector3T operator-(Vector3T a, Vector3T const & b) { return a -= b; }
    friend constexpr Vector3T operator*(Vector3T a, T f) { return a *= f; }
    friend constexpr Vector3T operator*(T f, Vector3T a) { return a *= f; }
    friend constexpr Vector3T operator/(Vector3T a, T f) { return a /= f; }
    friend constexpr Vector3T operator-(Vector3T const & a) { return {-a.x, -a.y, -a.z}; }
    friend constexpr bool operator==(Vector3T const & a, Vector3T const & b) { return a.x == b.x && a.y == b.y && a.z == b.z; }
    friend constexpr bool operator!=(Vector3T const & a, Vector3T const & b) { return !(a == b); }

    constexpr T Dot(Vector3T const & o) const { return x * o.x + y * o.y + z * o.z; }
    constexpr Vector3T Cross(Vector3T const & o) const { return {y * o.z - z * o.y, z * o.x - x * o.z, x * o.y - y * o.x}; }
    T Length() const { return std::hypot(x, y, z); }
};

} // namespace Math
