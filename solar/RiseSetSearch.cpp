#include "daystatus/Veldrin.h"
#include "shell/BackgroundTask.h"
#include "shell/Mathematics.h"

namespace veldrin {

void Veldrin::QuadParabola(double ym, double y0, double yp, double& xe, double& ye, double& z1,
                           double& z2, std::int32_t& nz) {
  nz = 0;
  const double a = (0.5 * (ym + yp)) - y0;
  const double b = 0.5 * (yp - ym);
  const double c = y0;
  xe = (-b) / (2.0 * a);
  ye = (((a * xe) + b) * xe) + c;
  const double dis = (b * b) - ((4.0 * a) * c);
  // The tests are for not greater, which a not-a-number passes as well.
  if (!(dis > 0.0)) return;
  const double dx = (0.5 * Sqrt(dis)) / Abs(a);
  z1 = xe - dx;
  z2 = xe + dx;
  if (!(Abs(z1) > 1.0)) nz = nz + 1;
  if (!(Abs(z2) > 1.0)) nz = nz + 1;
  if (z1 < -1.0) z1 = z2;
}

void Veldrin::DoVeldrin(double latitude, double longitude, const Ref<Date>& day, double zone,
                        double& riseTime, double& setTime) {
  const std::int32_t year = day->Year();
  const std::int32_t month = day->Month();
  const std::int32_t dayOfMonth = day->Day();
  const double lambda = -longitude;
  mjd0 = iPart(ModifiedJulianDate(year, month, dayOfMonth, 0.0));
  // Fifty minutes of arc under the horizon: refraction and the Sun's radius.
  const double sinho = Sin(((-Rads) * 50.0) / 60.0);
  const double sphi = Sin(Rads * latitude);
  const double cphi = Cos(Rads * latitude);

  double utrise = 0.0;
  double utset = 0.0;
  std::int32_t rise = 0;
  std::int32_t sett = 0;
  double hour = 1.0;
  double ym = SineAltitude(hour - 1.0, lambda, cphi, sphi) - sinho;
  do {
    const double y0 = SineAltitude(hour, lambda, cphi, sphi) - sinho;
    const double yp = SineAltitude(hour + 1.0, lambda, cphi, sphi) - sinho;
    double xe = 0.0;
    double ye = 0.0;
    double z1 = 0.0;
    double z2 = 0.0;
    std::int32_t nz = 0;
    QuadParabola(ym, y0, yp, xe, ye, z1, z2, nz);
    if (nz == 1) {
      if (ym < 0.0) {
        utrise = hour + z1;
        rise = 1;
      } else {
        utset = hour + z1;
        sett = 1;
      }
    } else if (nz == 2) {
      const bool dips = ye < 0.0;  // under the horizon between the roots
      utrise = hour + (dips ? z2 : z1);
      utset = hour + (dips ? z1 : z2);
      rise = 1;
      sett = 1;
    }
    ym = yp;
    hour = hour + 2.0;
    RuntimeBackgroundTask();
  } while (!(hour == 25.0 || rise * sett == 1));

  if (zone < 0.0) zone = zone + 24.0;
  const auto clockTime = [&](std::int32_t found, double ut, double& time) {
    if (found != 1) {
      time = -1.0;
      return;
    }
    time = ut + zone;
    if (time >= 24.0) time = time - 24.0;
    DoDaylightSavings(day, time);
  };
  clockTime(rise, utrise, riseTime);
  clockTime(sett, utset, setTime);
}

}  // namespace veldrin
