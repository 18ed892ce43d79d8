#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace veldrin {

/// A number as SVG wants it: the shortest digits that give the same value.
std::string svgNumber(double value);

/// An attribute of an element: a text or a number.
struct SvgAttribute {
  std::string_view name;
  std::string value;

  SvgAttribute(std::string_view key, std::string_view text) : name(key), value(text) {}
  SvgAttribute(std::string_view key, double number) : name(key), value(svgNumber(number)) {}
};

using SvgAttributes = std::initializer_list<SvgAttribute>;

/// An SVG document in the making. Texts and values of attributes are in UTF-8 and are escaped here.
class Svg {
 public:
  /// Begins an element that holds others, until `close()`.
  void open(std::string_view element, SvgAttributes attributes);
  void close();

  /// An element that holds nothing.
  void add(std::string_view element, SvgAttributes attributes);

  /// An element that holds a text.
  void add(std::string_view element, SvgAttributes attributes, std::string_view text);

  /// The whole text; every element has been closed.
  std::string finish() &&;

 private:
  void begin(std::string_view element, SvgAttributes attributes);
  void escape(std::string_view text);

  std::string text_;
  std::vector<std::string> open_;
};

}  // namespace veldrin
