#pragma once

namespace quillon {

// Short on purpose: every angle of the system is turned with these figures, and texts and files agree to the last digit
// only as long as nobody uses finer ones. kDegreesPerRadian is 3.1e-13 (relative) above 180/pi: 6 micrometres on the
// ground at 180 degrees, and enough that an angle of whole degrees never falls a hair short of them.

constexpr double kRadiansPerDegree = 0.017453292519943;
constexpr double kDegreesPerRadian = 57.2957795131;

}  // namespace quillon
