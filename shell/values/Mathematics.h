#pragma once

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <limits>

namespace veldrin {

// The results depend on IEEE 754 doubles, on rounding after each operation, and on operations in
// the written order.
#ifdef __FAST_MATH__
#error "The times go wrong under -ffast-math"
#endif
static_assert(std::numeric_limits<double>::is_iec559);
static_assert(FLT_EVAL_METHOD == 0);

// Angles are in radians. The build flags forbid the compiler to merge a sine and a cosine into one
// call or to fold constants, because the last digit might differ from the result of the C library.

/// The C library's sine of an angle.
inline double Sin(double angle) {
  return std::sin(angle);
}

/// The C library's cosine of an angle.
inline double Cos(double angle) {
  return std::cos(angle);
}

/// The arctangent, -pi/2 to pi/2.
inline double ATan(double tangent) {
  return std::atan(tangent);
}

/// The square root; NaN below zero.
inline double Sqrt(double value) {
  return std::sqrt(value);
}

/// The largest whole number not above the argument.
inline double Floor(double value) {
  // Twice as fast as std::floor.
  constexpr double FirstWithoutFraction = 0x1p52;
  if (value > 0.0 && value < FirstWithoutFraction) {
    return static_cast<double>(static_cast<std::int64_t>(value));
  }
  return std::floor(value);
}

/// The absolute value; 0.0 for -0.0, NaN for NaN.
inline double Abs(double value) {
  return std::fabs(value);
}

/// -1, 0 or 1 by the sign of the value; 0 for NaN.
inline std::int32_t Sign(double value) {
  return static_cast<std::int32_t>(value > 0.0) - static_cast<std::int32_t>(value < 0.0);
}

/// Converts an integer to a double, exactly.
inline double RuntimeCvtSInt32ToReal64(std::int32_t value) {
  return value;
}

/// Truncates a double toward zero. Saturates at the ends of the range; NaN gives 0.
inline std::int32_t RuntimeCvtReal64ToSInt32(double value) {
  constexpr double Smallest = std::numeric_limits<std::int32_t>::min();
  constexpr double Largest = std::numeric_limits<std::int32_t>::max();
  if (std::isnan(value)) return 0;
  if (value <= Smallest) return std::numeric_limits<std::int32_t>::min();
  if (value >= Largest) return std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(value);
}

}  // namespace veldrin
