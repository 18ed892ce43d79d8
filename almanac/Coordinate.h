#pragma once

#include <cstddef>
#include <string>

namespace veldrin {

/// A latitude or a longitude in degrees, in the forms of a document, with four digits behind the
/// point (some ten metres). Zero has no sign, so one place has one text.
class Coordinate {
 public:
  explicit Coordinate(double degrees);

  /// "-122.3321"
  [[nodiscard]] std::string number() const { return (negative_ ? "-" : "") + digits_; }
  /// By ISO 6709, with a sign and so many digits before the point: "+47.6062", "-122.3321".
  [[nodiscard]] std::string signedDigits(std::size_t wholeDigits) const;
  /// With the letter of its half of the Earth: "122.3321 W".
  [[nodiscard]] std::string words(char positive, char negative) const {
    return digits_ + ' ' + (negative_ ? negative : positive);
  }

 private:
  std::string digits_;
  bool negative_;
};

}  // namespace veldrin
