#pragma once

#include <cstdint>
#include <tuple>
#include <type_traits>

namespace DataObjects {

//! The six pixel types, in the order in which every type switch tries them.
using PixelTypeList = std::tuple<float, std::uint16_t, double, std::uint8_t, std::int32_t, std::uint32_t>;

namespace Private {
template <class T, class List>
struct IsOneOf;
template <class T, class... Ts>
struct IsOneOf<T, std::tuple<Ts...>> : std::bool_constant<(std::is_same_v<T, Ts> || ...)>
{
};
} // namespace Private

template <class T>
constexpr bool IsPixelType = Private::IsOneOf<T, PixelTypeList>::value;

} // namespace DataObjects

//! Expands X(type) once per pixel type, in switch order; used for explicit instantiation.
#define DATAOBJECTS_FOR_EACH_PIXEL_TYPE(X) \
    X(float)                               \
    X(std::uint16_t)                       \
    X(double)                              \
    X(std::uint8_t)                        \
    X(std::int32_t)                        \
    X(std::uint32_t)
