#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "chart/DayColumn.h"
#include "chart/SunDay.h"
#include "chart/Svg.h"

namespace veldrin {

/// The page of the picture. Call the public functions once each, in their order.
class ChartPage {
 public:
  /// `name` is the heading. `where` is the line below the heading.
  ChartPage(std::int32_t year, std::string_view name, std::string_view where);

  /// Draws the bands, with one column for each day of the year.
  void drawBands(std::span<const DayColumn> columns);

  /// Draws the frame, and the lines and labels of months and hours.
  void drawAxes();

  /// Adds the text of each day. A browser shows it while the mouse pointer is on the day.
  void drawDays(const std::vector<SunDay>& days);

  void drawKey();
  void drawExtremes(const YearExtremes& extremes);

  /// Returns the whole SVG text.
  std::string finish() &&;

 private:
  void drawHeading(std::string_view name, std::string_view where);
  void drawMonths();
  void drawHours();
  void drawLine(std::string_view kind, double x1, double y1, double x2, double y2);
  void drawText(std::string_view kind, double x, double y, std::string_view text);
  void openPlot(std::string_view id, std::string_view kind);
  [[nodiscard]] double left() const;
  [[nodiscard]] double right() const;
  /// The left edge of one of the six columns of text below the plot.
  [[nodiscard]] double columnAt(std::size_t index) const;

  std::int32_t year_;
  std::int64_t firstDay_;
  std::int64_t dayCount_;
  Svg svg_;
};

}  // namespace veldrin
