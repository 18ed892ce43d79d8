#pragma once

#include <cstdint>

#include "shell/values/Mathematics.h"

namespace veldrin::solar {

/// The sine of the altitude of the Sun's centre at sunrise and sunset. Refraction and the Sun's
/// radius put the centre 50 minutes of arc below the horizon. `rads` is radians per degree.
inline double sineAtHorizon(double rads) {
  return Sin(((-rads) * 50.0) / 60.0);
}

/// A parabola through three values at -1, 0 and +1.
struct Parabola {
  double xe = 0.0;      ///< abscissa of the vertex
  double ye = 0.0;      ///< ordinate of the vertex
  double z1 = 0.0;      ///< the first root, or the only one from -1 to +1
  double z2 = 0.0;      ///< the second root
  std::int32_t nz = 0;  ///< the number of roots from -1 to +1; if 0, `z1` and `z2` may be unchanged
};

/// Fits the parabola to the values at -1, 0 and +1. Divides by zero if they lie on a line.
inline void QuadParabola(double ym, double y0, double yp, Parabola& curve) {
  curve.nz = 0;
  const double a = (0.5 * (ym + yp)) - y0;
  const double b = 0.5 * (yp - ym);
  const double c = y0;
  curve.xe = (-b) / (2.0 * a);
  curve.ye = (((a * curve.xe) + b) * curve.xe) + c;
  const double dis = (b * b) - ((4.0 * a) * c);
  // Written as `!(x > y)` so that NaN takes the same branch.
  if (!(dis > 0.0)) return;
  const double dx = (0.5 * Sqrt(dis)) / Abs(a);
  curve.z1 = curve.xe - dx;
  curve.z2 = curve.xe + dx;
  if (!(Abs(curve.z1) > 1.0)) curve.nz = curve.nz + 1;
  if (!(Abs(curve.z2) > 1.0)) curve.nz = curve.nz + 1;
  if (curve.z1 < -1.0) curve.z1 = curve.z2;
}

/// The sunrise and the sunset of a day, in hours of Universal Time.
struct DayEvents {
  double utrise = 0.0;
  double utset = 0.0;
  std::int32_t rise = 0;  ///< 1 if `utrise` holds a time
  std::int32_t sett = 0;  ///< 1 if `utset` holds a time
};

/// Records the crossings of the horizon from `hour - 1` to `hour + 1`. `ym` is the value at
/// `hour - 1`.
inline void noteCrossings(const Parabola& curve, double hour, double ym, DayEvents& found) {
  if (curve.nz == 1) {
    if (ym < 0.0) {
      found.utrise = hour + curve.z1;
      found.rise = 1;
    } else {
      found.utset = hour + curve.z1;
      found.sett = 1;
    }
  } else if (curve.nz == 2) {
    const bool dips = curve.ye < 0.0;  // below the horizon between the roots
    found.utrise = hour + (dips ? curve.z2 : curve.z1);
    found.utset = hour + (dips ? curve.z1 : curve.z2);
    found.rise = 1;
    found.sett = 1;
  }
}

/// Finds when the Sun crosses the altitude with the sine `sinho` on a day of Universal Time. Each
/// pass covers two hours with a parabola through three values and calls `yield()` once.
/// `sineAltitude(hour)` gives the sine of the Sun's altitude at an hour [0:24]. The search ends as
/// soon as it has both events; until then a later event replaces an earlier one of its kind.
template <class SineAltitude, class Yield>
DayEvents searchDay(double sinho, const SineAltitude& sineAltitude, const Yield& yield) {
  DayEvents found;
  double hour = 1.0;
  double ym = sineAltitude(hour - 1.0) - sinho;
  do {
    const double y0 = sineAltitude(hour) - sinho;
    const double yp = sineAltitude(hour + 1.0) - sinho;
    Parabola curve;
    QuadParabola(ym, y0, yp, curve);
    noteCrossings(curve, hour, ym, found);
    ym = yp;
    hour = hour + 2.0;
    yield();
  } while (!(hour == 25.0 || found.rise * found.sett == 1));
  return found;
}

/// Converts an hour of Universal Time to the clock time of a zone `zone` hours east of Greenwich.
/// The result is below 24 for zones from -24 to 24.
inline double clockTime(double ut, double zone) {
  if (zone < 0.0) zone = zone + 24.0;
  const double time = ut + zone;
  return time >= 24.0 ? time - 24.0 : time;
}

}  // namespace veldrin::solar
