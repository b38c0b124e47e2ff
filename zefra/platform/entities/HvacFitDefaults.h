#pragma once
// Built-in proportions of the default fitting records. Sizes and lengths
// are multiples of the connected duct's size at that end; angles are in
// radians.

namespace HvacFitDefaults {

inline constexpr double kQuarterTurn = 1.5707963267948966;  // 90 degrees
inline constexpr double kTaperAngle = 0.5235987755982988;   // 30 degrees
inline constexpr double kEqualSize = 1.0;
inline constexpr double kCurvature = 1.0;  // inner radius : duct width
inline constexpr int kLobsterSegments = 5;
inline constexpr double kTransitionLength = 1.0;
inline constexpr double kOffsetLength = 2.0;
inline constexpr double kOffsetDistance = 1.0;

}  // namespace HvacFitDefaults
