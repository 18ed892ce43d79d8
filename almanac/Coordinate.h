#pragma once

#include <cstddef>
#include <string>

namespace veldrin {

/// A latitude or a longitude as the texts of a document, in degrees with four digits after the
/// point (about ten metres). Zero has no sign.
class Coordinate {
 public:
  explicit Coordinate(double degrees);

  /// "-122.3321"
  [[nodiscard]] std::string number() const { return (negative_ ? "-" : "") + digits_; }
  /// With a sign and at least `wholeDigits` digits before the point: "+47.6062", "-122.3321".
  [[nodiscard]] std::string signedDigits(std::size_t wholeDigits) const;
  /// With the letter of its half of the Earth: "122.3321 W".
  [[nodiscard]] std::string words(char positive, char negative) const {
    return digits_ + ' ' + (negative_ ? negative : positive);
  }

  bool operator==(const Coordinate&) const = default;

 private:
  std::string digits_;
  bool negative_;
};

/// A place by ISO 6709: "+47.6062-122.3321". Each place has one text: the longitude of a pole is 0,
/// and -180 is 180.
std::string placeCode(const Coordinate& latitude, const Coordinate& longitude);

}  // namespace veldrin
