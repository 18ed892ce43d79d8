#pragma once

#include "shell/values/Mathematics.h"
#include "solar/TimeBase.h"

namespace veldrin::solar {

/// The Sun's equatorial coordinates.
struct Equatorial {
  double ra;   ///< right ascension in hours [0:24)
  double dec;  ///< declination in degrees
};

/// An observer's place, in the form that the formulas use.
struct Observer {
  double lambda;  ///< longitude in degrees, west positive
  double sphi;    ///< sine of the latitude
  double cphi;    ///< cosine of the latitude

  /// Takes degrees, north and east positive. `rads` is the factor from degrees to radians.
  Observer(double latitude, double longitude, double rads)
      : lambda(-longitude), sphi(Sin(rads * latitude)), cphi(Cos(rads * latitude)) {}
};

/// The Sun's coordinates `t` Julian centuries after noon of 2000-01-01, by a low-precision theory
/// that is accurate to a minute of arc.
inline Equatorial TheSun(double t) {
  // The theory has ten digits of 2 pi; more would change the last digits of the results.
  constexpr double p2 = 6.283185307;
  constexpr double coseps = 0.91748;
  constexpr double sineps = 0.39778;
  const double m = p2 * fPart(0.993133 + (99.997361 * t));      // mean anomaly
  const double dl = (6893.0 * Sin(m)) + (72.0 * Sin(2.0 * m));  // equation of centre, arcseconds
  const double u = 0.7859453 + (m / p2);
  const double v = ((6191.2 * t) + dl) / 1296000.0;
  const double l = p2 * fPart(u + v);  // ecliptic longitude
  const double sl = Sin(l);
  const double x = Cos(l);
  const double y = coseps * sl;
  const double z = sineps * sl;
  const double rho = Sqrt(1.0 - (z * z));
  const double dec = (360.0 / p2) * ATan(z / rho);
  const double ra = (48.0 / p2) * ATan(y / (x + rho));
  return {ra < 0.0 ? ra + 24.0 : ra, dec};
}

/// The local mean sidereal time (IAU 1982), from -24 to 24 hours. `lambda` is the longitude in
/// degrees, west positive. Sets `mjd0` to the whole part of `mjd`.
inline double LocalSiderialTime(double mjd, double lambda, double& mjd0) {
  mjd0 = iPart(mjd);
  const double ut = (mjd - mjd0) * 24.0;
  const double t = centuriesTo(mjd0);  // to midnight, not to `mjd`
  double g = 6.697374558 + (1.0027379093 * ut);
  const double p = (0.093104 - (6.2e-06 * t)) * t;
  const double q = (8640184.812866 + p) * t;
  g = g + (q / 3600.0);
  const double h = (g - (lambda / 15.0)) / 24.0;
  return 24.0 * fPart(h);
}

/// The sine of the true altitude of the Sun's centre; `lst` is the local sidereal time in hours.
inline double SineAltitude(const Equatorial& sun, double lst, double cphi, double sphi,
                           double rads) {
  const double tau = 15.0 * (lst - sun.ra);  // hour angle in degrees
  const double a = sphi * Sin(rads * sun.dec);
  const double b = cphi * Cos(rads * sun.dec);
  const double c = Cos(rads * tau);
  return a + (b * c);
}

}  // namespace veldrin::solar
