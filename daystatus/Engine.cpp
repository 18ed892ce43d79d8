// The methods of the window that compute sunrise and sunset. They call `solar/` and keep its state,
// the property `mjd0`.

#include "daystatus/Veldrin.h"
#include "shell/window/BackgroundTask.h"
#include "solar/RiseSetSearch.h"
#include "solar/SunPosition.h"
#include "solar/TimeBase.h"

namespace veldrin {

double Veldrin::iPart(double x) {
  return solar::iPart(x);
}

double Veldrin::fPart(double x) {
  return solar::fPart(x);
}

double Veldrin::ModifiedJulianDate(std::int32_t year, std::int32_t month, std::int32_t day,
                                   double hour) {
  return solar::ModifiedJulianDate(year, month, day, hour);
}

void Veldrin::TheSun(double t, double& ra, double& dec) {
  const solar::Equatorial sun = solar::TheSun(t);
  ra = sun.ra;
  dec = sun.dec;
}

double Veldrin::LocalSiderialTime(double mjd, double lambda) {
  return solar::LocalSiderialTime(mjd, lambda, mjd0);
}

double Veldrin::SineAltitude(double hour, double lambda, double cphi, double sphi) {
  const double mjd = solar::momentAt(mjd0, hour);
  solar::Equatorial sun{};
  TheSun(solar::centuriesTo(mjd), sun.ra, sun.dec);
  const double lst = LocalSiderialTime(mjd, lambda);
  return solar::SineAltitude(sun, lst, cphi, sphi, Rads);
}

void Veldrin::QuadParabola(double ym, double y0, double yp, double& xe, double& ye, double& z1,
                           double& z2, std::int32_t& nz) {
  solar::Parabola curve{xe, ye, z1, z2, nz};
  solar::QuadParabola(ym, y0, yp, curve);
  xe = curve.xe;
  ye = curve.ye;
  z1 = curve.z1;
  z2 = curve.z2;
  nz = curve.nz;
}

void Veldrin::DoVeldrin(double latitude, double longitude, const Ref<Date>& day, double zone,
                        double& riseTime, double& setTime) {
  const std::int32_t year = day->Year();
  const std::int32_t month = day->Month();
  const std::int32_t dayOfMonth = day->Day();
  mjd0 = iPart(ModifiedJulianDate(year, month, dayOfMonth, 0.0));
  const solar::Observer observer(latitude, longitude, Rads);
  const auto sineAltitude = [&](double hour) {
    return SineAltitude(hour, observer.lambda, observer.cphi, observer.sphi);
  };
  const solar::DayEvents found =
      solar::searchDay(solar::sineAtHorizon(Rads), sineAltitude, RuntimeBackgroundTask);
  const auto finish = [&](std::int32_t eventCount, double ut, double& time) {
    time = -1.0;
    if (eventCount != 1) return;
    time = solar::clockTime(ut, zone);
    DoDaylightSavings(day, time);
  };
  finish(found.rise, found.utrise, riseTime);
  finish(found.sett, found.utset, setTime);
}

}  // namespace veldrin
