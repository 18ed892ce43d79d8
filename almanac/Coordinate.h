#pragma once

#include <cstddef>
#include <string>

namespace veldrin {

/// A latitude or a longitude as text: degrees with four digits after the point (about ten metres).
/// A value that rounds to zero counts as positive.
class Coordinate {
 public:
  explicit Coordinate(double degrees);

  /// "-122.3321"
  [[nodiscard]] std::string number() const { return (isNegative_ ? "-" : "") + digits_; }
  /// With a sign and at least `wholeDigits` digits before the point: "+47.6062", "-122.3321".
  [[nodiscard]] std::string signedDigits(std::size_t wholeDigits) const;
  /// With one of the two letters instead of a sign: "122.3321 W".
  [[nodiscard]] std::string words(char positive, char negative) const {
    return digits_ + ' ' + (isNegative_ ? negative : positive);
  }

  bool operator==(const Coordinate&) const = default;

 private:
  std::string digits_;
  bool isNegative_;
};

/// A place as text by ISO 6709: "+47.6062-122.3321". Each place has only one text: the longitude of
/// a pole becomes 0, and -180 becomes 180.
std::string placeCode(const Coordinate& latitude, const Coordinate& longitude);

}  // namespace veldrin
