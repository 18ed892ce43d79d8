#include "Bare.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <utility>

namespace bare {
namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kRads = kPi / 180.0;

// Wraps a 64-bit result to 32 bits, as the application's arithmetic wraps on overflow.
constexpr std::int32_t wrap(std::int64_t value) {
  return static_cast<std::int32_t>(value);
}

double sign(double x) {
  return static_cast<double>((x > 0.0) - (x < 0.0));
}

bool isLeap(std::int32_t year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

// In March and in November, which begin on the same weekday. Weekdays repeat every 400 years.
std::int32_t firstSunday(std::int32_t year) {
  const std::int32_t y = ((year % 400) + 400) % 400;
  const std::int32_t first = (y + y / 4 - y / 100 + 3) % 7;  // 0 is Sunday
  return 1 + (7 - first) % 7;
}

bool isSavingTime(const Saving& saving, Civil day) {
  if (!saving.start || !saving.end) return saving.downUnder;
  Civil start = *saving.start;
  Civil end = *saving.end;
  if (end < start) std::swap(start, end);
  const bool isInside = start <= day && day < end;
  return isInside != saving.downUnder;
}

void adjust(const Saving& saving, Civil day, double& hours) {
  if (!saving.on || !isSavingTime(saving, day)) return;
  hours = hours + 1.0;
  if (hours < 0.0) hours = hours + 24.0;
  if (!(hours < 24.0)) hours = hours - 24.0;
}

void append(Line& line, std::string_view text) {
  std::memcpy(line.text + line.size, text.data(), text.size());
  line.size += text.size();
}

void append(Line& line, std::int32_t number) {
  char* const end = line.text + sizeof line.text;
  line.size =
      static_cast<std::size_t>(std::to_chars(line.text + line.size, end, number).ptr - line.text);
}

// Appends a whole number with at least two digits.
void appendTwoDigits(Line& line, double number) {
  if (number >= 0.0 && number < 100.0) {
    const int whole = static_cast<int>(number);
    line.text[line.size++] = static_cast<char>('0' + whole / 10);
    line.text[line.size++] = static_cast<char>('0' + whole % 10);
    return;
  }
  const auto result = std::to_chars(line.text + line.size, line.text + sizeof line.text, number,
                                    std::chars_format::fixed, 0);
  line.size = static_cast<std::size_t>(result.ptr - line.text);
}

// Rounds to a minute. The second rounding is needed because most sixtieths are inexact.
void appendTime(Line& line, double hours, std::string_view separator) {
  const double rounded = std::floor((hours * 60.0) + 0.5) / 60.0;
  const double whole = std::floor(rounded);
  appendTwoDigits(line, whole);
  append(line, separator);
  appendTwoDigits(line, std::floor(((rounded - whole) * 60.0) + 0.5));
}

std::string_view ended(Line& line) {
  append(line, "\r\n");
  return {line.text, line.size};
}

std::string shortDate(Civil day) {
  std::string year = std::to_string(day.year);
  const std::size_t digits = day.year < 0 ? 1u : 0u;
  if (year.size() < digits + 4) year.insert(digits, digits + 4 - year.size(), '0');
  return std::to_string(day.month) + "/" + std::to_string(day.day) + "/" + year;
}

}  // namespace

Civil firstBound(std::int32_t year) {
  return {year, 3, firstSunday(year) + 7};
}

Civil lastBound(std::int32_t year) {
  return {year, 11, firstSunday(year)};
}

Civil nextDay(Civil day) {
  constexpr std::int32_t kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const std::int32_t leapDay = day.month == 2 && isLeap(day.year) ? 1 : 0;
  if (day.day < kDays[day.month - 1] + leapDay) return {day.year, day.month, day.day + 1};
  if (day.month < 12) return {day.year, day.month + 1, 1};
  return {wrap(std::int64_t{day.year} + 1), 1, 1};
}

double iPart(double x) {
  return sign(x) * std::floor(std::abs(x));
}

double fPart(double x) {
  const double a = std::abs(x);
  return sign(x) * (a - std::floor(a));
}

double ModifiedJulianDate(std::int32_t year, std::int32_t month, std::int32_t day, double hour) {
  const double key = wrap(std::int64_t{10000} * year + std::int64_t{100} * month + day);
  if (year < 0) year = year + 1;
  if (month <= 2) {
    month = month + 12;
    year = wrap(std::int64_t{year} - 1);
  }
  std::int32_t b = 0;
  if (key <= 15821004.1) {
    b = wrap(std::int64_t{year} + 4716) / 4 - 2 - 1179;
  } else {
    b = (year / 400) - (year / 100) + (year / 4);
  }
  const double a = wrap(std::int64_t{365} * year - 679004);
  const double m = iPart(30.6001 * static_cast<double>(wrap(std::int64_t{month} + 1)));
  double s = a + b;
  s = s + m;
  s = s + static_cast<double>(day);
  return s + (hour / 24.0);
}

// The low-precision solar theory of Montenbruck and Pfleger, Astronomy on the Personal Computer.
void TheSun(double t, double& ra, double& dec) {
  constexpr double kCircle = 6.283185307;
  constexpr double kCosObliquity = 0.91748;
  constexpr double kSinObliquity = 0.39778;
  const double m = kCircle * fPart(0.993133 + (99.997361 * t));
  const double dl = (6893.0 * std::sin(m)) + (72.0 * std::sin(2.0 * m));
  const double u = 0.7859453 + (m / kCircle);
  const double v = ((6191.2 * t) + dl) / 1296000.0;
  const double l = kCircle * fPart(u + v);
  const double sl = std::sin(l);
  const double x = std::cos(l);
  const double y = kCosObliquity * sl;
  const double z = kSinObliquity * sl;
  const double rho = std::sqrt(1.0 - (z * z));
  dec = (360.0 / kCircle) * std::atan(z / rho);
  ra = (48.0 / kCircle) * std::atan(y / (x + rho));
  if (ra < 0.0) ra = ra + 24.0;
}

// Greenwich mean sidereal time (IAU 1982) minus the west longitude.
double LocalSiderialTime(Engine& engine, double mjd, double lambda) {
  engine.mjd0 = iPart(mjd);
  const double ut = (mjd - engine.mjd0) * 24.0;
  const double t = (engine.mjd0 - 51544.5) / 36525.0;
  double g = 6.697374558 + (1.0027379093 * ut);
  const double p = (0.093104 - (6.2e-06 * t)) * t;
  const double q = (8640184.812866 + p) * t;
  g = g + (q / 3600.0);
  const double h = (g - (lambda / 15.0)) / 24.0;
  return 24.0 * fPart(h);
}

double SineAltitude(Engine& engine, double hour, double lambda, double cphi, double sphi) {
  const double mjd = engine.mjd0 + (hour / 24.0);
  const double t = (mjd - 51544.5) / 36525.0;
  double ra = 0.0;
  double dec = 0.0;
  TheSun(t, ra, dec);
  const double lst = LocalSiderialTime(engine, mjd, lambda);
  const double tau = 15.0 * (lst - ra);
  const double a = sphi * std::sin(kRads * dec);
  const double b = cphi * std::cos(kRads * dec);
  const double c = std::cos(kRads * tau);
  return a + (b * c);
}

void QuadParabola(double ym, double y0, double yp, double& xe, double& ye, double& z1, double& z2,
                  std::int32_t& nz) {
  nz = 0;
  const double a = (0.5 * (ym + yp)) - y0;
  const double b = 0.5 * (yp - ym);
  const double c = y0;
  xe = (-b) / (2.0 * a);
  ye = (((a * xe) + b) * xe) + c;
  const double dis = (b * b) - ((4.0 * a) * c);
  if (!(dis > 0.0)) return;
  const double dx = (0.5 * std::sqrt(dis)) / std::abs(a);
  z1 = xe - dx;
  z2 = xe + dx;
  // Written as `!(x > 1)` so that NaN counts as inside: one root is NaN if the samples lie on a
  // sloping line.
  if (!(std::abs(z1) > 1.0)) ++nz;
  if (!(std::abs(z2) > 1.0)) ++nz;
  if (z1 < -1.0) z1 = z2;
}

void DoVeldrin(Place place, Civil day, const Saving& saving, double& rise, double& set) {
  Engine engine{iPart(ModifiedJulianDate(day.year, day.month, day.day, 0.0))};
  const double lambda = -place.longitude;
  const double sinho = std::sin(((-kRads) * 50.0) / 60.0);
  const double sphi = std::sin(kRads * place.latitude);
  const double cphi = std::cos(kRads * place.latitude);
  double utrise = 0.0;
  double utset = 0.0;
  bool hasRise = false;
  bool hasSet = false;
  double hour = 1.0;
  double ym = SineAltitude(engine, hour - 1.0, lambda, cphi, sphi) - sinho;
  do {
    const double y0 = SineAltitude(engine, hour, lambda, cphi, sphi) - sinho;
    const double yp = SineAltitude(engine, hour + 1.0, lambda, cphi, sphi) - sinho;
    double xe = 0.0;
    double ye = 0.0;
    double z1 = 0.0;
    double z2 = 0.0;
    std::int32_t nz = 0;
    QuadParabola(ym, y0, yp, xe, ye, z1, z2, nz);
    if (nz == 1 && ym < 0.0) {
      utrise = hour + z1;
      hasRise = true;
    } else if (nz == 1) {
      utset = hour + z1;
      hasSet = true;
    } else if (nz == 2) {
      utrise = hour + (ye < 0.0 ? z2 : z1);
      utset = hour + (ye < 0.0 ? z1 : z2);
      hasRise = hasSet = true;
    }
    ym = yp;
    hour = hour + 2.0;
  } while (!(hour == 25.0 || (hasRise && hasSet)));

  const double zone = place.zone < 0.0 ? place.zone + 24.0 : place.zone;
  const auto clock = [&](bool found, double ut, double& hours) {
    hours = -1.0;
    if (!found) return;
    hours = ut + zone;
    if (hours >= 24.0) hours = hours - 24.0;
    adjust(saving, day, hours);
  };
  clock(hasRise, utrise, rise);
  clock(hasSet, utset, set);
}

std::string hhmm(double hours) {
  if (hours < 0.0) return "N/A";
  Line line;
  line.size = 0;
  appendTime(line, hours, ":");
  return {line.text, line.size};
}

std::string hhmmzz(double hours) {
  if (hours < 0.0) return "000000";
  Line line;
  line.size = 0;
  appendTime(line, hours, "");
  append(line, "00");
  return {line.text, line.size};
}

std::string status(Place place, const Saving& saving, Civil day) {
  double rise = 0.0;
  double set = 0.0;
  DoVeldrin(place, day, saving, rise, set);
  return shortDate(day) + "\nSunrise = " + hhmm(rise) + "\nSunset = " + hhmm(set);
}

double computeYear(Place place, const Saving& saving, std::int32_t year) {
  double sum = 0.0;
  for (Civil day = nextDay({year, 1, 1}); day.year == year; day = nextDay(day)) {
    double rise = 0.0;
    double set = 0.0;
    DoVeldrin(place, day, saving, rise, set);
    sum = sum + rise;
    sum = sum + set;
  }
  return sum;
}

std::string_view summaryLine(Line& line, std::string_view event, double hours) {
  line.size = 0;
  append(line, "SUMMARY: ");
  append(line, event);
  append(line, " at ");
  appendTime(line, hours, ":");
  return ended(line);
}

std::string_view startLine(Line& line, Civil day, double hours) {
  line.size = 0;
  append(line, "DTSTART:");
  append(line, day.year);
  appendTwoDigits(line, day.month);
  appendTwoDigits(line, day.day);
  append(line, "T");
  appendTime(line, hours, "");
  append(line, "00");
  return ended(line);
}

}  // namespace bare
