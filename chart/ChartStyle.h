#pragma once

#include <string_view>

namespace veldrin {

/// Colours and fonts of the picture, for light and dark pages. The bands also differ in brightness,
/// for people who cannot tell colours apart. Anti-aliasing of the bands is off, because it would
/// leave seams between them. The contrast of texts against the page exceeds 4.5 : 1.
inline constexpr std::string_view ChartStyle = R"(
text { font-family: sans-serif; fill: #262b3a }
.page { fill: #fbfaf6 }
.night { fill: #0d142f }
.astronomical { fill: #364a8b }
.nautical { fill: #6886bb }
.civil { fill: #e9a972 }
.day { fill: #fdf2cd }
.bands { shape-rendering: crispEdges }
.frame { fill: none; stroke: #5d6478; stroke-width: 1 }
.line { stroke: #7f879b; stroke-opacity: .34; stroke-width: 1 }
.noon { stroke-dasharray: 2 5; stroke-opacity: .7 }
.name { font-weight: 400 }
.swatch { stroke: #5d6478; stroke-width: .7 }
.year { font-size: 34px; font-weight: 300; text-anchor: end }
.where, .axis, .label { fill: #555b6e }
.where { font-size: 15px }
.axis { font-size: 13px }
.month { text-anchor: middle }
.hour { text-anchor: end }
.label { font-size: 13px }
.value { font-size: 18px }
.days { fill: none; pointer-events: all }
@media (prefers-color-scheme: dark) {
  text { fill: #ece9e1 }
  .page { fill: #161a24 }
  .night { fill: #0b1026 }
  .astronomical { fill: #2f4077 }
  .nautical { fill: #5c76a8 }
  .civil { fill: #d69a69 }
  .day { fill: #f3e4b4 }
  .frame { stroke: #7c8499 }
  .where, .axis, .label { fill: #aab0c0 }
}
)";

}  // namespace veldrin
