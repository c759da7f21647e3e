#pragma once

#include <string>

namespace DataObjects {

class C_Attributes;

//! Names of the time attributes of buffers and frames.
namespace TimeAttributeNames {
inline constexpr char const AcqTime[] = "AcqTime";
inline constexpr char const AcqTimeList[] = "AcqTimeList";
inline constexpr char const AcqTimeSeries[] = "AcqTimeSeries";
inline constexpr char const AcqPhase[] = "AcqPhase";
inline constexpr char const FrameDt[] = "FrameDt";
} // namespace TimeAttributeNames

//! The number at the start of the attribute's text; a unit after it is ignored, and a text that
//! does not start with a number gives 0. A missing name raises Basis::Exception "Attribute with
//! the name <name> does not exist in the attribute set.".
double GetTimeValue(C_Attributes const & attributes, std::string const & name);

//! The frame interval in microseconds (GetTimeValue of FrameDt).
double GetFrameDt(C_Attributes const & attributes);
bool HasFrameDt(C_Attributes const & attributes);
//! Stores FrameDt as text: six significant digits, a blank and the micro-second unit ("100 µs").
void SetFrameDt(C_Attributes & attributes, double dt);

} // namespace DataObjects
