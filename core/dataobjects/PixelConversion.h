#pragma once

#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

namespace DataObjects {

//! Converts one element into another pixel type, without scaling.
//!
//! Floating targets take the ordinary conversion. Integer targets saturate to their range and
//! then truncate toward zero; NaN gives 0, or the minimum for int32. A bool target (mask) is
//! true for every value that is not equal to 0, so NaN is true.
//!
//! Truncation is deliberate here; the plane arithmetic rounds uint16 results to nearest. Keep
//! the two rules apart.
template <class T, class U>
inline T ConvertPixel(U value) noexcept
{
    if constexpr (std::is_same_v<T, U>) {
        return value;
    } else if constexpr (std::is_same_v<T, bool>) {
        return value != U(0);
    } else if constexpr (std::is_floating_point_v<T>) {
        return static_cast<T>(value);
    } else if constexpr (std::is_same_v<U, float> && sizeof(T) < 4) {
        // The bounds of uint8 and uint16 are exact in float, so the clamp stays in float and the
        // loop vectorises at full width.
        constexpr float highest = float(std::numeric_limits<T>::max());
        float v = value == value ? value : 0.0f;
        v = v > 0.0f ? v : 0.0f;
        v = v < highest ? v : highest;
        return static_cast<T>(static_cast<std::int32_t>(v));
    } else if constexpr (std::is_floating_point_v<U>) {
        constexpr double lowest = double(std::numeric_limits<T>::lowest());
        constexpr double highest = double(std::numeric_limits<T>::max());
        // Written as selects rather than branches so that loops over planes vectorise.
        double v = value == value ? double(value) : lowest;
        v = v > lowest ? v : lowest;
        v = v < highest ? v : highest;
        return static_cast<T>(v);
    } else {
        constexpr std::int64_t lowest = std::int64_t(std::numeric_limits<T>::lowest());
        constexpr std::int64_t highest = std::int64_t(std::numeric_limits<T>::max());
        std::int64_t v = std::int64_t(value);
        v = v > lowest ? v : lowest;
        v = v < highest ? v : highest;
        return static_cast<T>(v);
    }
}

//! Converts count elements in memory order; the same type is one block copy.
template <class T, class U>
inline void ConvertPixels(T * __restrict target, U const * __restrict source, std::uint64_t count) noexcept
{
    if constexpr (std::is_same_v<T, U>) {
        if (count > 0)
            std::memcpy(target, source, count * sizeof(T));
    } else {
        for (std::uint64_t i = 0; i < count; ++i)
            target[i] = ConvertPixel<T>(source[i]);
    }
}

} // namespace DataObjects
