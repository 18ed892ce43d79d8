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

/// The main window and the whole logic of the program. Each method reads its inputs from the
/// controls when it needs them; nothing is cached. Methods are implemented in `daystatus`,
/// `calendar` and `ui`.
///
/// Latitude is positive north, longitude positive east. A time zone is in hours, positive east of
/// Greenwich, without daylight saving. A time of day counts hours since local midnight; it is
/// negative if there is no such event.
class Veldrin final : public Described<Veldrin, Window> {
 public:
  static constexpr FixedString FullName = "Veldrin.Veldrin";
  static void fillTable(ClassTable<Veldrin>& table);

  /// Releases `statusDate`.
  void __Exit() { statusDate = nullptr; }

  double Rads = 0.0;   ///< degrees to radians
  double Degs = 0.0;   ///< radians to degrees; unused
  double mjd0 = 0.0;   ///< whole Modified Julian Date of the current computation
  double TwoPi = 0.0;  ///< 2 pi; unused
  double Pi = 0.0;
  Ref<Date> statusDate;  ///< the day shown in the status panel

  // ui: the form

  /// The handler of "Layout": sets the window's properties.
  void Layout();
  /// The handler of "CreateControls": makes the controls of the form.
  void CreateControls();
  void _CreateControls0();

  // The controls that the logic uses; `control<"Name">(window)` returns any control of the form.

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

  // The handlers of the controls' events.

  /// Moves to the previous day and updates the status. Raises `NilObjectException` if `statusDate`
  /// is nil.
  void BackOneDay_Action();
  /// Moves to the next day and updates the status. Raises as `BackOneDay_Action`.
  void ForwardOneDay_Action();
  /// calendar: asks for a file and writes the calendar of the year in `WhichYear` into it, from
  /// January 2 to December 31. Raises `IOException` if a line cannot be written. If the file cannot
  /// be created, only shows a message box.
  void GenerateButton_Action();
  /// ui: selects the current year if the chooser has it, and writes the default daylight-saving
  /// dates of that year.
  void WhichYear_Open();
  /// ui: writes the default daylight-saving dates of the chosen year, then updates the status.
  void WhichYear_Change();
  void DownUnderFlag_Action() { UpdateStatus(); }
  void DaylightSavings_Action() { UpdateStatus(); }
  void Latitude_LostFocus() { UpdateStatus(); }
  void TimeZone_LostFocus() { UpdateStatus(); }
  void Longitude_LostFocus() { UpdateStatus(); }

  // ui: the items of the menu bar. Each raises `NilObjectException` if the window has no menu bar.

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

  /// The handler of the window's "Open": sets the numeric properties, the daylight-saving dates of
  /// the current year, the time zone and the status date, then updates the status.
  void Event_Open();

  // solar

  /// Sunrise and sunset of a day at a place, as clock times of `zone` with daylight saving; -1.0 if
  /// the day has no such event. The search covers the UTC day of the date, so far from Greenwich
  /// the two may belong to neighbouring local days. Coordinates in degrees, north and east
  /// positive, not checked. Raises `NilObjectException` for a nil day. Three-point interpolation by
  /// the hour: O. Montenbruck and T. Pfleger, Astronomy on the Personal Computer, on sunrise and
  /// sunset.
  void DoVeldrin(double latitude, double longitude, const Ref<Date>& day, double zone,
                 double& riseTime, double& setTime);
  /// The parabola through three values at -1, 0 and +1: its vertex and the number of its roots from
  /// -1 to +1. A single root is in `z1`; without roots, `z1` and `z2` may be unchanged.
  void QuadParabola(double ym, double y0, double yp, double& xe, double& ye, double& z1, double& z2,
                    std::int32_t& nz);
  /// The Modified Julian Date of a calendar date at an hour; the calendar is Julian up to
  /// 1582-10-04. Integer steps wrap at 32 bits. From the same book.
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
  /// of 2000-01-01, by the low-precision theory of the same book.
  void TheSun(double t, double& ra, double& dec);

  // civiltime

  /// A time of day for display: "06:30", or "N/A" if negative. Rounds to the minute; does not wrap
  /// at 24.
  String HHMMFormat(double x);
  /// Writes the default daylight-saving dates of a year into `DSTStart` and `DSTEnd`: the second
  /// Sunday of March and the first of November, in every year.
  void SetDaylightSavingsBounds(std::int32_t year);
  /// Adds the daylight-saving hour to a time of day if daylight saving is switched on and the date
  /// has it. Does not change the date.
  void DoDaylightSavings(const Ref<Date>& d, double& t);
  /// daystatus: recomputes the status panel from the controls.
  void UpdateStatus();
  /// A time of day as six digits, "063000", or "000000" for a negative one.
  String HHMMZZ(double x);
  /// Whether a date has daylight saving: from the first date (included) to the second, or outside
  /// this period if `DownUnderFlag` is on. If a field is not a date, the period is empty.
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
/// The only instance of the window, made on first use.
Ref<veldrin::Veldrin> Veldrin();
}  // namespace implicit

}  // namespace veldrin
