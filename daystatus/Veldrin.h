#pragma once

#include <cstdint>

#include "shell/values/Date.h"
#include "shell/window/CheckBox.h"
#include "shell/window/MenuItem.h"
#include "shell/window/Placard.h"
#include "shell/window/PopupMenu.h"
#include "shell/window/PushButton.h"
#include "shell/window/StaticText.h"
#include "shell/window/TextField.h"
#include "shell/window/Window.h"

namespace veldrin {

class TextOutputStream;

/// The main window, and with it the whole of the program's logic. The controls are the live source
/// of every input: they are read by name at the moment they are needed, and nothing is cached. The
/// folders `solar`, `civiltime`, `calendar` and `ui` define the methods that are their own.
///
/// Signs at the surface: latitude positive north, longitude positive east, zone in hours positive
/// east of Greenwich and without daylight saving. A time of day is a double that counts hours since
/// local midnight; a negative one means that the event does not exist.
class Veldrin final : public Described<Veldrin, Window> {
 public:
  static constexpr FixedString FullName = "Veldrin.Veldrin";
  static void fillTable(ClassTable<Veldrin>& table);

  /// Gives up `statusDate`.
  void __Exit() { statusDate = nullptr; }

  double Rads = 0.0;   ///< degrees to radians
  double Degs = 0.0;   ///< radians to degrees; read by nothing
  double mjd0 = 0.0;   ///< whole Modified Julian Date of the day being worked on
  double TwoPi = 0.0;  ///< the full circle; read by nothing
  double Pi = 0.0;
  Ref<Date> statusDate;  ///< the day shown in the status panel

  // ui: the form

  /// The handler of "Layout": the window's own properties.
  void Layout();
  /// The handler of "CreateControls": makes the controls of the form.
  void CreateControls();
  void _CreateControls0();

  // The controls that the logic reads and writes; `control<"Name">(window)` gives any of the form.

  [[nodiscard]] Ref<StaticText> Status() const { return control<StaticText>("Status"_s); }
  [[nodiscard]] Ref<PushButton> BackOneDay() const { return control<PushButton>("BackOneDay"_s); }
  [[nodiscard]] Ref<PushButton> ForwardOneDay() const {
    return control<PushButton>("ForwardOneDay"_s);
  }
  [[nodiscard]] Ref<PushButton> GenerateButton() const {
    return control<PushButton>("GenerateButton"_s);
  }
  [[nodiscard]] Ref<PopupMenu> WhichYear() const { return control<PopupMenu>("WhichYear"_s); }
  [[nodiscard]] Ref<TextField> DSTEnd() const { return control<TextField>("DSTEnd"_s); }
  [[nodiscard]] Ref<TextField> DSTStart() const { return control<TextField>("DSTStart"_s); }
  [[nodiscard]] Ref<CheckBox> DownUnderFlag() const { return control<CheckBox>("DownUnderFlag"_s); }
  [[nodiscard]] Ref<CheckBox> DaylightSavings() const {
    return control<CheckBox>("DaylightSavings"_s);
  }
  [[nodiscard]] Ref<TextField> Latitude() const { return control<TextField>("Latitude"_s); }
  [[nodiscard]] Ref<TextField> TimeZone() const { return control<TextField>("TimeZone"_s); }
  [[nodiscard]] Ref<TextField> Longitude() const { return control<TextField>("Longitude"_s); }

  // The handlers of the controls' events. Those of the day's panel recompute the status.

  /// One day back, then the status. Raises `NilObjectException` while there is no `statusDate`.
  void BackOneDay_Action();
  /// One day forward, likewise.
  void ForwardOneDay_Action();
  /// calendar: asks for a file and writes the calendar of the year in `WhichYear` into it, from
  /// January 2 to December 31. Raises `IOException` where a line cannot be written; a file that
  /// cannot be made is told in a message box and nothing more.
  void GenerateButton_Action();
  /// ui: brings the chooser to the present year, if it has it, and writes that year's bounds.
  void WhichYear_Open();
  /// ui: the bounds of the chosen year, then the status.
  void WhichYear_Change();
  void DownUnderFlag_Action() { UpdateStatus(); }
  void DaylightSavings_Action() { UpdateStatus(); }
  void Latitude_LostFocus() { UpdateStatus(); }
  void TimeZone_LostFocus() { UpdateStatus(); }
  void Longitude_LostFocus() { UpdateStatus(); }

  // ui: the items of the menu bar. Each raises `NilObjectException` while the window has no bar.

  [[nodiscard]] Ref<MenuItem> EditMenu() const { return menuItem<MenuItem>("EditMenu"_s); }
  [[nodiscard]] Ref<MenuItem> EditSelectAll() const {
    return menuItem<MenuItem>("EditSelectAll"_s);
  }
  [[nodiscard]] Ref<MenuItem> UntitledMenu0() const {
    return menuItem<MenuItem>("UntitledMenu0"_s);
  }
  [[nodiscard]] Ref<MenuItem> EditClear() const { return menuItem<MenuItem>("EditClear"_s); }
  [[nodiscard]] Ref<MenuItem> EditPaste() const { return menuItem<MenuItem>("EditPaste"_s); }
  [[nodiscard]] Ref<MenuItem> EditCopy() const { return menuItem<MenuItem>("EditCopy"_s); }
  [[nodiscard]] Ref<MenuItem> EditCut() const { return menuItem<MenuItem>("EditCut"_s); }
  [[nodiscard]] Ref<MenuItem> UntitledMenu1() const {
    return menuItem<MenuItem>("UntitledMenu1"_s);
  }
  [[nodiscard]] Ref<MenuItem> EditUndo() const { return menuItem<MenuItem>("EditUndo"_s); }
  [[nodiscard]] Ref<MenuItem> FileMenu() const { return menuItem<MenuItem>("FileMenu"_s); }
  [[nodiscard]] Ref<QuitMenuItem> FileQuit() const { return menuItem<QuitMenuItem>("FileQuit"_s); }

  /// The handler of the window's "Open": the numeric properties, the bounds of the present year,
  /// the default time zone, the day of the panel and the first status.
  void Event_Open();

  // solar

  /// The times of sunrise and sunset of a day at a place, -1.0 for an event that the day does not
  /// have. They are clock times of `zone` with daylight saving already in them. The day searched is
  /// the Greenwich day of the date, so far from Greenwich the two may belong to neighbouring local
  /// days. Degrees north and east; any number is taken as it is. Raises `NilObjectException` for a
  /// nil day. Three-point interpolation by the hour: O. Montenbruck and T. Pfleger, Astronomy on
  /// the Personal Computer, on sunrise and sunset.
  void DoVeldrin(double latitude, double longitude, const Ref<Date>& day, double zone,
                 double& riseTime, double& setTime);
  /// The parabola through three values at -1, 0 and +1: its vertex, and how many of its roots lie
  /// from -1 to +1. One root inside is always in `z1`; with none, `z1` and `z2` may be untouched.
  void QuadParabola(double ym, double y0, double yp, double& xe, double& ye, double& z1, double& z2,
                    std::int32_t& nz);
  /// The Modified Julian Date of a calendar date at an hour; Julian up to 1582-10-04. Integer steps
  /// wrap at 32 bits. From the routine of the same book.
  double ModifiedJulianDate(std::int32_t year, std::int32_t month, std::int32_t day, double hour);
  /// The whole part, truncated toward zero.
  double iPart(double x);
  /// The sine of the Sun's true altitude at an hour of Universal Time, counted from the midnight
  /// that begins `mjd0`. `lambda` is the longitude, west positive; `cphi` and `sphi` belong to the
  /// latitude. May move `mjd0`.
  double SineAltitude(double hour, double lambda, double cphi, double sphi);
  /// The local mean sidereal time in hours, from -24 to 24 and not normalised; IAU 1982. Sets
  /// `mjd0` to the whole part of `mjd`.
  double LocalSiderialTime(double mjd, double lambda);
  /// The fractional part, with the sign of the argument.
  double fPart(double x);
  /// The Sun's right ascension in hours and declination in degrees, `t` Julian centuries after noon
  /// of 2000-01-01. The low-precision theory of the same book.
  void TheSun(double t, double& ra, double& dec);

  // civiltime

  /// A time of day as people read it, "06:30", or "N/A" for a negative one. Rounded to the minute;
  /// nothing wraps at 24.
  String HHMMFormat(double x);
  /// Writes the default bounds of a year into `DSTStart` and `DSTEnd`: the second Sunday of March
  /// and the first of November, in every year.
  void SetDaylightSavingsBounds(std::int32_t year);
  /// Moves a time of day on by the hour of daylight saving, if that is switched on and the date
  /// falls under it. The date does not change.
  void DoDaylightSavings(const Ref<Date>& d, double& t);
  /// daystatus: recomputes the status panel from what stands in the controls.
  void UpdateStatus();
  /// A time of day as six digits, "063000", or "000000" for a negative one.
  String HHMMZZ(double x);
  /// Whether daylight saving holds at a date: from the first bound, included, to the second, and
  /// outside of that where `DownUnderFlag` is on. A bound that is no date leaves every date
  /// outside.
  bool IsDaylightSavingsTime(const Ref<Date>& d);
  /// The date in the host's short form. Raises `NilObjectException` for nil.
  String ShortDate(const Ref<Date>& d);

 private:
  template <class T>
  [[nodiscard]] Ref<T> control(StringConstant name) const {
    return RuntimeWindowControlByName<T>(*this, name);
  }
  template <class T>
  [[nodiscard]] Ref<T> menuItem(StringConstant name) const {
    return CheckCast<T>(MenuBar()->_Lookup(name));
  }
  [[nodiscard]] Ref<Date> newDate() const {
    return Ref<Date>::adopt(static_cast<Date*>(__New(Date::__Lookup()).release()));
  }
  void stepDay(double seconds);
  /// calendar: the whole document of the year in `WhichYear`.
  void writeYear(TextOutputStream& stream);
};

namespace implicit {
/// The window's one instance, made now if it does not stand yet.
Ref<veldrin::Veldrin> Veldrin();
}  // namespace implicit

}  // namespace veldrin
