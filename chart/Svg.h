#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace veldrin {

/// The shortest text of a number that reads back as the same value.
std::string svgNumber(double value);

/// An attribute of an element: a text or a number.
struct SvgAttribute {
  std::string_view name;
  std::string value;

  SvgAttribute(std::string_view key, std::string_view text) : name(key), value(text) {}
  SvgAttribute(std::string_view key, double number) : name(key), value(svgNumber(number)) {}
};

using SvgAttributes = std::initializer_list<SvgAttribute>;

/// Writes an SVG document. Texts and values of attributes are UTF-8; this class escapes them.
class Svg {
 public:
  /// Begins an element that contains others, until `close()`.
  void open(std::string_view element, SvgAttributes attributes);
  void close();

  /// An empty element.
  void add(std::string_view element, SvgAttributes attributes);

  /// An element that contains a text.
  void add(std::string_view element, SvgAttributes attributes, std::string_view text);

  /// The document. Close every element first.
  std::string finish() &&;

 private:
  void begin(std::string_view element, SvgAttributes attributes);
  void escape(std::string_view text);

  std::string text_;
  std::vector<std::string> open_;
};

}  // namespace veldrin
