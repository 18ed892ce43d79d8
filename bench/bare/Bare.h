// The application's arithmetic and text in plain functions: no window, no controls, no counted
// objects, and no code of the application. Benchmarks compare its speed with the application's.
// Tests compare the results: equal bits show that the framework does not change a result, not that
// the arithmetic is right.
//
//   bare::Saving off{false, false, std::nullopt, std::nullopt};
//   bare::status({47.5, -122.5, -8.0}, off, {2024, 6, 21});
//   // "6/21/2024\nSunrise = 04:13\nSunset = 20:11"
//
// Floating-point operations must be done in double, in the order written. Compile Bare.cpp with
// -ffp-contract=off -fno-builtin-sin -fno-builtin-cos.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace bare {

struct Place {
  double latitude;   // degrees, north positive
  double longitude;  // degrees, east positive
  double zone;       // hours, east positive, standard time
};

// An existing day of the proleptic Gregorian calendar with a year 0.
struct Civil {
  std::int32_t year;
  std::int32_t month;  // [1:12]
  std::int32_t day;    // [1:31]
  // NOLINTNEXTLINE(modernize-use-nullptr): no pointer involved.
  friend auto operator<=>(const Civil&, const Civil&) = default;
};

struct Saving {
  bool on;
  bool downUnder;                   // saving time is outside the period
  std::optional<Civil> start, end;  // in any order; nullopt: the field has no date
};

// The second Sunday of March and the first Sunday of November.
Civil firstBound(std::int32_t year);
Civil lastBound(std::int32_t year);

// After the last 32-bit year, wraps to the first.
Civil nextDay(Civil day);

// --- Sun ---------------------------------------------------------------------------------------

// The state of a search: the Modified Julian Date of the searched day, a whole number.
struct Engine {
  double mjd0;
};

double iPart(double x);  // toward zero
double fPart(double x);  // with the sign of x
double ModifiedJulianDate(std::int32_t year, std::int32_t month, std::int32_t day, double hour);

// t in Julian centuries from noon of 2000-01-01; ra in hours [0:24), dec in degrees.
void TheSun(double t, double& ra, double& dec);

// Hours, not normalised. lambda in degrees, west positive. Moves engine.mjd0 to the day of mjd.
double LocalSiderialTime(Engine& engine, double mjd, double lambda);

// hour: hours since the start of day engine.mjd0. Moves engine.mjd0 like LocalSiderialTime.
double SineAltitude(Engine& engine, double hour, double lambda, double cphi, double sphi);

// The parabola through (-1, ym), (0, y0), (+1, yp). Sets the vertex (xe, ye), the roots z1 and z2,
// and nz, the number of roots in [-1:+1]. If there are not two real roots, z1 and z2 are unchanged.
// If one root is in the range, it is z1.
void QuadParabola(double ym, double y0, double yp, double& xe, double& ye, double& z1, double& z2,
                  std::int32_t& nz);

// Local hours of sunrise and sunset, including saving time; -1.0 if not found.
void DoVeldrin(Place place, Civil day, const Saving& saving, double& rise, double& set);

// --- Text --------------------------------------------------------------------------------------

std::string hhmm(double hours);    // "07:05", or "N/A" below zero
std::string hhmmzz(double hours);  // "070500", or "000000" below zero

// Short date, sunrise and sunset, joined by "\n".
std::string status(Place place, const Saving& saving, Civil day);

// --- Year --------------------------------------------------------------------------------------

// The sum of all times from January 2 to December 31, including each -1.0.
double computeYear(Place place, const Saving& saving, std::int32_t year);

// A buffer for one line. Appending needs no bounds check: a line has at most 30 characters plus the
// digits of the hour, which is a double: at most 309.
struct Line {
  char text[400];
  std::size_t size;
};

inline constexpr std::string_view kHeader[] = {
    "BEGIN:VCALENDAR\r\n",
    "VERSION:2.0\r\n",
    "X-WR-CALNAME;VALUE=TEXT:Sunrise and Sunset\r\n",
    "X-WR-TIMEZONE:US/Pacific\r\n",
    "PRODID:-//Quorvex//Marnoth 1.0//EN\r\n",
    "CALSCALE:GREGORIAN\r\n",
};
inline constexpr std::string_view kFooter = "END:VCALENDAR\r\n";
inline constexpr std::string_view kNoEvent = "SUMMARY: No sunrise or sunset\r\n";
inline constexpr std::string_view kBeginEvent = "BEGIN:VEVENT\r\n";
inline constexpr std::string_view kEndEvent = "END:VEVENT\r\n";

// Both overwrite `line` and return it with CR LF.
std::string_view summaryLine(Line& line, std::string_view event, double hours);
std::string_view startLine(Line& line, Civil day, double hours);

template <class Sink>
void writeEvent(Line& line, std::string_view event, Civil day, double hours, Sink& sink) {
  sink(kBeginEvent);
  sink(summaryLine(line, event, hours));
  sink(startLine(line, day, hours));
  sink(kEndEvent);
}

// Passes each line of the calendar, with CR LF, to sink(std::string_view). The view is valid during
// the call only.
template <class Sink>
void writeYear(Place place, const Saving& saving, std::int32_t year, Sink&& sink) {
  constexpr double kNoon = 12.0;
  Line line;
  for (const std::string_view text : kHeader) sink(text);
  for (Civil day = nextDay({year, 1, 1}); day.year == year; day = nextDay(day)) {
    double rise = 0.0;
    double set = 0.0;
    DoVeldrin(place, day, saving, rise, set);
    if (rise < 0.0 || set < 0.0) {
      sink(kBeginEvent);
      sink(kNoEvent);
      sink(startLine(line, day, kNoon));
      sink(kEndEvent);
    } else {
      writeEvent(line, "Sunrise", day, rise, sink);
      writeEvent(line, "Sunset", day, set, sink);
    }
  }
  sink(kFooter);
}

}  // namespace bare
