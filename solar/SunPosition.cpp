#include "daystatus/Veldrin.h"
#include "shell/Mathematics.h"

namespace veldrin {

// The two helpers stand beside the theory that calls them, where the compiler can put them in
// place.

double Veldrin::iPart(double x) {
  const double s = RuntimeCvtSInt32ToReal64(Sign(x));
  const double f = Floor(Abs(x));
  return s * f;
}

double Veldrin::fPart(double x) {
  double a = Abs(x);
  a = a - Floor(a);
  const double s = RuntimeCvtSInt32ToReal64(Sign(x));
  return s * a;
}

void Veldrin::TheSun(double t, double& ra, double& dec) {
  // The theory's own ten digits of the full circle; the last places depend on them.
  constexpr double p2 = 6.283185307;
  constexpr double coseps = 0.91748;
  constexpr double sineps = 0.39778;
  const double m = p2 * fPart(0.993133 + (99.997361 * t));      // mean anomaly
  const double dl = (6893.0 * Sin(m)) + (72.0 * Sin(2.0 * m));  // equation of centre, "
  const double u = 0.7859453 + (m / p2);
  const double v = ((6191.2 * t) + dl) / 1296000.0;
  const double l = p2 * fPart(u + v);  // ecliptic longitude
  const double sl = Sin(l);
  const double x = Cos(l);
  const double y = coseps * sl;
  const double z = sineps * sl;
  const double rho = Sqrt(1.0 - (z * z));
  dec = (360.0 / p2) * ATan(z / rho);
  ra = (48.0 / p2) * ATan(y / (x + rho));
  if (ra < 0.0) ra = ra + 24.0;
}

double Veldrin::LocalSiderialTime(double mjd, double lambda) {
  mjd0 = iPart(mjd);
  const double ut = (mjd - mjd0) * 24.0;
  const double t = (mjd0 - 51544.5) / 36525.0;  // of the whole day, unlike that of the altitude
  double g = 6.697374558 + (1.0027379093 * ut);
  const double p = (0.093104 - (6.2e-06 * t)) * t;
  const double q = (8640184.812866 + p) * t;
  g = g + (q / 3600.0);
  const double h = (g - (lambda / 15.0)) / 24.0;
  return 24.0 * fPart(h);
}

double Veldrin::SineAltitude(double hour, double lambda, double cphi, double sphi) {
  const double mjd = mjd0 + (hour / 24.0);
  const double t = (mjd - 51544.5) / 36525.0;
  double ra = 0.0;
  double dec = 0.0;
  TheSun(t, ra, dec);
  const double lst = LocalSiderialTime(mjd, lambda);
  const double tau = 15.0 * (lst - ra);  // hour angle in degrees
  const double a = sphi * Sin(Rads * dec);
  const double b = cphi * Cos(Rads * dec);
  const double c = Cos(Rads * tau);
  return a + (b * c);
}

}  // namespace veldrin
