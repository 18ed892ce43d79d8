#include "chart/ChartPage.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

#include "chart/BandPath.h"
#include "chart/ChartStyle.h"
#include "chart/Words.h"
#include "shell/host/Civil.h"

namespace veldrin {
namespace {

// Units are pixels of the unscaled picture. Lines are one pixel wide and lie on half pixels, so
// they are sharp.
constexpr double Width = 1280.0;
constexpr double Height = 936.0;
constexpr double DayWidth = 3.0;
constexpr double MinuteHeight = 0.4;
constexpr double Top = 128.5;
constexpr double Bottom = Top + MinutesOfDay * MinuteHeight;
constexpr double HeadingY = 66.0;
constexpr double WhereY = 96.0;
constexpr double KeyY = 776.0;
constexpr double ExtremesY = 836.0;

struct BandName {
  std::string_view identifier, words;
};

constexpr std::array<BandName, BandCount> BandNames{{{"night", "Night"},
                                                     {"astronomical", "Astronomical twilight"},
                                                     {"nautical", "Nautical twilight"},
                                                     {"civil", "Civil twilight"},
                                                     {"day", "Day"}}};

/// The font size, 34 or smaller, at which a name leaves room for the year beside it. Assumes wide
/// letters: 0.65 of the font size for ASCII, the whole font size for others.
double fontSizeOf(std::string_view name) {
  constexpr double Largest = 34.0;
  constexpr double Room = 960.0;
  double width = 0.0;
  for (const char byte : name) {
    const auto code = static_cast<unsigned char>(byte);
    if (code < 0x80) width += 0.65;
    if (code >= 0xC0) width += 1.0;
  }
  return width * Largest > Room ? Room / width : Largest;
}

constexpr std::size_t FactCount = 6;

/// An extreme of the year, as three lines of text.
struct Fact {
  std::string_view label;
  std::string value;
  std::string date;
};

Fact lengthFact(std::string_view label, const DayMinutes& length) {
  return {label, lengthWords(length.minutes), dateWords(length.day)};
}

/// A fact that has the number of days instead of a date.
Fact allDayFact(std::string_view label, std::string_view words, std::int64_t days) {
  return {label, std::string(words), std::to_string(days) + (days == 1 ? " day" : " days")};
}

Fact timeFact(std::string_view label, const std::optional<DayMinutes>& time) {
  if (!time) return {label, "none", ""};
  return {label, clockTime(time->minutes), dateWords(time->day)};
}

std::array<Fact, FactCount> factsOf(const YearExtremes& extremes) {
  return {extremes.daysUp > 0 ? allDayFact("Longest day", "Sun up all day", extremes.daysUp)
                              : lengthFact("Longest day", extremes.longest),
          extremes.daysDown > 0 ? allDayFact("Shortest day", "Sun down all day", extremes.daysDown)
                                : lengthFact("Shortest day", extremes.shortest),
          timeFact("Earliest sunrise", extremes.earliestSunrise),
          timeFact("Latest sunrise", extremes.latestSunrise),
          timeFact("Earliest sunset", extremes.earliestSunset),
          timeFact("Latest sunset", extremes.latestSunset)};
}

}  // namespace

ChartPage::ChartPage(std::int32_t year, std::string_view name, std::string_view where)
    : year_(year),
      firstDay_(dayNumber(year, 1, 1)),
      dayCount_(dayNumber(year, 12, 31) - firstDay_ + 1) {
  svg_.open("svg", {{"xmlns", "http://www.w3.org/2000/svg"},
                    {"viewBox", "0 0 " + svgNumber(Width) + ' ' + svgNumber(Height)},
                    {"role", "img"},
                    {"aria-labelledby", "title desc"}});
  const std::string year4 = std::to_string(year);
  svg_.add("title", {{"id", "title"}}, std::string("A year of light: ").append(name) + ' ' + year4);
  svg_.add("desc", {{"id", "desc"}},
           "Night, twilight and day of each day of " + year4 +
               ", by the clock of the place. Days run across, hours down. " + std::string(where));
  svg_.add("style", {}, ChartStyle);
  svg_.add("rect", {{"class", "page"}, {"width", Width}, {"height", Height}});
  drawHeading(name, where);
}

double ChartPage::left() const {
  return std::floor((Width - DayWidth * static_cast<double>(dayCount_)) / 2.0) + 0.5;
}

double ChartPage::right() const {
  return left() + DayWidth * static_cast<double>(dayCount_);
}

double ChartPage::columnAt(std::size_t index) const {
  return left() + (right() - left()) * static_cast<double>(index) / FactCount;
}

void ChartPage::drawHeading(std::string_view name, std::string_view where) {
  svg_.add("text",
           {{"class", "name"}, {"x", left()}, {"y", HeadingY}, {"font-size", fontSizeOf(name)}},
           name);
  drawText("year", right(), HeadingY, std::to_string(year_));
  drawText("where", left(), WhereY, where);
}

void ChartPage::openPlot(std::string_view id, std::string_view kind) {
  svg_.open("g",
            {{"id", id},
             {"class", kind},
             {"transform", "translate(" + svgNumber(left()) + ' ' + svgNumber(Top) + ") scale(" +
                               svgNumber(DayWidth) + ' ' + svgNumber(MinuteHeight) + ')'}});
}

void ChartPage::drawBands(std::span<const DayColumn> columns) {
  openPlot("plot", "bands");
  for (std::size_t band = 0; band < BandCount; ++band) {
    const std::string_view name = BandNames[band].identifier;
    svg_.add("path",
             {{"id", name}, {"class", name}, {"d", bandPath(columns, static_cast<Band>(band))}});
  }
  svg_.close();
}

void ChartPage::drawAxes() {
  drawMonths();
  drawHours();
  svg_.add("rect", {{"class", "frame"},
                    {"x", left()},
                    {"y", Top},
                    {"width", right() - left()},
                    {"height", Bottom - Top}});
}

void ChartPage::drawMonths() {
  constexpr double Distance = 24.0;
  double begin = left();
  for (std::int32_t month = 1; month <= 12; ++month) {
    if (month > 1) drawLine("line", begin, Top, begin, Bottom);
    const double width = DayWidth * daysInMonth(year_, month);
    drawText("axis month", begin + width / 2.0, Bottom + Distance, monthName(month));
    begin += width;
  }
}

void ChartPage::drawHours() {
  constexpr std::int32_t Step = 180;
  constexpr double Distance = 12.0;
  constexpr double HalfOfLetter = 4.5;
  for (std::int32_t minute = 0; minute <= MinutesOfDay; minute += Step) {
    const double y = Top + MinuteHeight * minute;
    drawText("axis hour", left() - Distance, y + HalfOfLetter, clockTime(minute));
    if (minute == 0 || minute == MinutesOfDay) continue;
    drawLine(minute == MinutesOfDay / 2 ? "line noon" : "line", left(), y, right(), y);
  }
}

void ChartPage::drawDays(const std::vector<SunDay>& days) {
  openPlot("days", "days");
  for (const SunDay& day : days) {
    svg_.open("path", {{"d", 'M' + std::to_string(day.day - firstDay_) + " 0h1v1440h-1z"}});
    svg_.add("title", {}, dayWords(day));
    svg_.close();
  }
  svg_.close();
}

void ChartPage::drawKey() {
  constexpr double Swatch = 16.0;
  constexpr double Gap = 10.0;
  for (std::size_t band = 0; band < BandCount; ++band) {
    const double x = columnAt(band);
    svg_.add("rect", {{"class", std::string("swatch ").append(BandNames[band].identifier)},
                      {"x", x},
                      {"y", KeyY - Swatch + 3.0},
                      {"width", Swatch},
                      {"height", Swatch}});
    drawText("label", x + Swatch + Gap, KeyY, BandNames[band].words);
  }
}

void ChartPage::drawExtremes(const YearExtremes& extremes) {
  constexpr double LineHeight = 24.0;
  const auto facts = factsOf(extremes);
  for (std::size_t column = 0; column < facts.size(); ++column) {
    const Fact& fact = facts[column];
    const double x = columnAt(column);
    drawText("label", x, ExtremesY, fact.label);
    drawText("value", x, ExtremesY + LineHeight, fact.value);
    drawText("label", x, ExtremesY + 2.0 * LineHeight - 3.0, fact.date);
  }
}

void ChartPage::drawLine(std::string_view kind, double x1, double y1, double x2, double y2) {
  svg_.add("line", {{"class", kind}, {"x1", x1}, {"y1", y1}, {"x2", x2}, {"y2", y2}});
}

void ChartPage::drawText(std::string_view kind, double x, double y, std::string_view text) {
  svg_.add("text", {{"class", kind}, {"x", x}, {"y", y}}, text);
}

std::string ChartPage::finish() && {
  svg_.close();
  return std::move(svg_).finish();
}

}  // namespace veldrin
