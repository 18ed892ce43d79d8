#pragma once

#include <cstdint>

#include "shell/values/Mathematics.h"

namespace veldrin::solar {

// The solar engine follows O. Montenbruck and T. Pfleger, Astronomy on the Personal Computer. It
// differs from the book in details. Keep these differences and the order and grouping of every
// operation: a change may alter the last digits of the output.

/// The factor from degrees to radians, with sixteen digits of pi.
inline constexpr double Rads = 3.141592653589793 / 180.0;

/// The whole part, truncated toward zero.
inline double iPart(double x) {
  const double s = RuntimeCvtSInt32ToReal64(Sign(x));
  const double f = Floor(Abs(x));
  return s * f;
}

/// The fractional part, with the sign of the argument: -0.75 for -2.75.
inline double fPart(double x) {
  double a = Abs(x);
  a = a - Floor(a);
  const double s = RuntimeCvtSInt32ToReal64(Sign(x));
  return s * a;
}

/// The Modified Julian Date of a calendar date at an hour; the calendar is Julian up to 1582-10-04.
/// Integer operations wrap around at 32 bits.
double ModifiedJulianDate(std::int32_t year, std::int32_t month, std::int32_t day, double hour);

/// The Modified Julian Date of the moment `hour` hours after the midnight `mjd0`.
inline double momentAt(double mjd0, double hour) {
  return mjd0 + (hour / 24.0);
}

/// Julian centuries from noon of 2000-01-01 to a Modified Julian Date.
inline double centuriesTo(double mjd) {
  return (mjd - 51544.5) / 36525.0;
}

}  // namespace veldrin::solar
