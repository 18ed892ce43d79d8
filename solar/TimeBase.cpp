#include "solar/TimeBase.h"

namespace veldrin::solar {
namespace {

/// Converts a result to 32 bits; wraps around on overflow.
constexpr std::int32_t wrapped(std::int64_t value) {
  return static_cast<std::int32_t>(value);
}

}  // namespace

double ModifiedJulianDate(std::int32_t year, std::int32_t month, std::int32_t day, double hour) {
  const double key = RuntimeCvtSInt32ToReal64(
      wrapped(std::int64_t{10000} * year + std::int64_t{100} * month + day));
  if (year < 0) year = year + 1;
  if (month <= 2) {
    month = wrapped(std::int64_t{month} + 12);
    year = wrapped(std::int64_t{year} - 1);
  }
  double b = 0.0;
  if (key <= 15821004.1) {
    b = RuntimeCvtSInt32ToReal64(wrapped(std::int64_t{year} + 4716) / 4 - 2 - 1179);
  } else {
    b = RuntimeCvtSInt32ToReal64(year / 400 - year / 100 + year / 4);
  }
  const double a = RuntimeCvtSInt32ToReal64(wrapped(std::int64_t{365} * year - 679004));
  double s = a + b;
  const double m = iPart(30.6001 * RuntimeCvtSInt32ToReal64(wrapped(std::int64_t{month} + 1)));
  s = s + m;
  s = s + RuntimeCvtSInt32ToReal64(day);
  return s + hour / 24.0;
}

}  // namespace veldrin::solar
