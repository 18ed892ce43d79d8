#include "chart/Svg.h"

#include <charconv>
#include <utility>

namespace veldrin {

std::string svgNumber(double value) {
  char text[32];
  return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

void Svg::open(std::string_view element, SvgAttributes attributes) {
  begin(element, attributes);
  text_ += ">\n";
  open_.emplace_back(element);
}

void Svg::close() {
  text_ += "</" + open_.back() + ">\n";
  open_.pop_back();
}

void Svg::add(std::string_view element, SvgAttributes attributes) {
  begin(element, attributes);
  text_ += "/>\n";
}

void Svg::add(std::string_view element, SvgAttributes attributes, std::string_view text) {
  begin(element, attributes);
  text_ += '>';
  escape(text);
  text_.append("</").append(element).append(">\n");
}

std::string Svg::finish() && {
  return std::move(text_);
}

void Svg::begin(std::string_view element, SvgAttributes attributes) {
  text_.append("<").append(element);
  for (const SvgAttribute& attribute : attributes) {
    text_.append(" ").append(attribute.name).append("=\"");
    escape(attribute.value);
    text_ += '"';
  }
}

void Svg::escape(std::string_view text) {
  for (const char byte : text) {
    switch (byte) {
      case '&':
        text_ += "&amp;";
        break;
      case '<':
        text_ += "&lt;";
        break;
      case '>':
        text_ += "&gt;";
        break;
      case '"':
        text_ += "&quot;";
        break;
      case '\'':
        text_ += "&#39;";
        break;
      default:
        text_ += byte;
    }
  }
}

}  // namespace veldrin
