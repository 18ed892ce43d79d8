#include "almanac/Sky.h"

#include "shell/host/Civil.h"

namespace veldrin {

double Sky::midnightOf(std::int64_t day) {
  const CivilDay civil = civilDay(day);
  return solar::iPart(solar::ModifiedJulianDate(static_cast<std::int32_t>(civil.year), civil.month,
                                                civil.day, 0.0));
}

double Sky::sineAltitude(double midnight, double hour) const {
  const double mjd = solar::momentAt(midnight, hour);
  const solar::Equatorial sun = solar::TheSun(solar::centuriesTo(mjd));
  double wholeDay = 0.0;
  const double lst = solar::LocalSiderialTime(mjd, observer_.lambda, wholeDay);
  return solar::SineAltitude(sun, lst, observer_.cphi, observer_.sphi, solar::Rads);
}

double Sky::mostInAnHour() const {
  constexpr double MostByTurning = 0.263;       // the Earth's rotation: one turn in a sidereal day
  constexpr double MostByDeclination = 0.0003;  // the Sun's declination: 24 minutes of arc in a day
  return MostByTurning * observer_.cphi + MostByDeclination;
}

}  // namespace veldrin
