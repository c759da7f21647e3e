#pragma once

#include <QLatin1String>

// Unit texts of the suite, in Latin-1 as they are stored in attributes and scales.
namespace Basis::AngleUnits {
constexpr QLatin1String Degree("\xB0", 1);
constexpr QLatin1String Radian("rad", 3);
} // namespace Basis::AngleUnits

namespace Basis::TimeUnits {
constexpr QLatin1String Second("s", 1);
constexpr QLatin1String Millisecond("ms", 2);
constexpr QLatin1String Microsecond("\xB5s", 2);
constexpr QLatin1String Nanosecond("ns", 2);
} // namespace Basis::TimeUnits
