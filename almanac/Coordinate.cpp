#include "almanac/Coordinate.h"

#include <charconv>
#include <cmath>

namespace veldrin {
namespace {

constexpr int DigitsOfFraction = 4;

std::string fixed(double magnitude) {
  char text[400];  // the largest double has 309 digits before the point
  return {text, std::to_chars(text, text + sizeof text, magnitude, std::chars_format::fixed,
                              DigitsOfFraction)
                    .ptr};
}

}  // namespace

Coordinate::Coordinate(double degrees)
    : digits_(fixed(std::fabs(degrees))), isNegative_(degrees < 0.0 && digits_ != "0.0000") {}

std::string Coordinate::signedDigits(std::size_t wholeDigits) const {
  const std::size_t before = digits_.size() - 1 - DigitsOfFraction;
  const std::string zeros(before < wholeDigits ? wholeDigits - before : 0, '0');
  return (isNegative_ ? "-" : "+") + zeros + digits_;
}

std::string placeCode(const Coordinate& latitude, const Coordinate& longitude) {
  const bool isPole = latitude == Coordinate(90.0) || latitude == Coordinate(-90.0);
  const bool isMinus180 = longitude == Coordinate(-180.0);
  const Coordinate meridian = isPole ? Coordinate(0.0) : isMinus180 ? Coordinate(180.0) : longitude;
  return latitude.signedDigits(2) + meridian.signedDigits(3);
}

}  // namespace veldrin
