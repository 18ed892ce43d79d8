#pragma once

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <limits>

namespace veldrin {

// The arithmetic's conditions: doubles of IEEE 754, each operation rounded to a double by itself,
// and none rearranged.
#ifdef __FAST_MATH__
#error "The times go wrong under -ffast-math"
#endif
static_assert(std::numeric_limits<double>::is_iec559);
static_assert(FLT_EVAL_METHOD == 0);

// The mathematical operations of the solar engine. Each hands its argument to the C library
// unchanged and returns what comes back; angles are radians. The build keeps the compiler from
// merging a sine and a cosine into one call and from working them out itself, both of which may
// differ from the library in the last place.

/// The sine of an angle.
inline double Sin(double angle) {
  return std::sin(angle);
}

/// The cosine of an angle.
inline double Cos(double angle) {
  return std::cos(angle);
}

/// The arctangent, from minus half pi to plus half pi.
inline double ATan(double tangent) {
  return std::atan(tangent);
}

/// The square root; not-a-number below zero.
inline double Sqrt(double value) {
  return std::sqrt(value);
}

/// The largest whole number not above the argument.
inline double Floor(double value) {
  // The same for what is positive and may have a fraction, in half of the time.
  constexpr double FirstWithout = 0x1p52;
  if (value > 0.0 && value < FirstWithout) {
    return static_cast<double>(static_cast<std::int64_t>(value));
  }
  return std::floor(value);
}

/// The magnitude.
inline double Abs(double value) {
  return std::fabs(value);
}

/// -1, 0 or 1 by the sign of the value; 0 for both zeros and for not-a-number.
inline std::int32_t Sign(double value) {
  return static_cast<std::int32_t>(value > 0.0) - static_cast<std::int32_t>(value < 0.0);
}

/// The integer as a double, exactly.
inline double RuntimeCvtSInt32ToReal64(std::int32_t value) {
  return value;
}

/// The double without its fraction, toward zero; the nearest end of the range for one that leaves
/// it, and 0 for not-a-number.
inline std::int32_t RuntimeCvtReal64ToSInt32(double value) {
  constexpr double Smallest = std::numeric_limits<std::int32_t>::min();
  constexpr double Largest = std::numeric_limits<std::int32_t>::max();
  if (std::isnan(value)) return 0;
  if (value <= Smallest) return std::numeric_limits<std::int32_t>::min();
  if (value >= Largest) return std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(value);
}

}  // namespace veldrin
