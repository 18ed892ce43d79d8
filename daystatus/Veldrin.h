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

/// The main window and its logic. Each method reads its inputs from the controls when it needs
/// them; nothing is cached. The methods are implemented in `daystatus`, except those marked "ui" or
/// "calendar".
///
/// Latitude is positive north, longitude positive east. A time zone is in hours, positive east of
/// Greenwich, without daylight saving. A time of day counts hours since local midnight; it is
/// negative if the sunrise or sunset does not exist.
class Veldrin final : public Described<Veldrin, Window> {
 public:
  static constexpr FixedString FullName = "Veldrin.Veldrin";
  static void fillTable(ClassTable<Veldrin>& table);

  /// Releases `statusDate`.
  void __Exit() { statusDate = nullptr; }

  double Rads = 0.0;   ///< factor from degrees to radians
  double Degs = 0.0;   ///< factor from radians to degrees; unused
  double mjd0 = 0.0;   ///< the computed day, a whole Modified Julian Date
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

  /// Moves `statusDate` to the previous day and updates the status. Raises `NilObjectException` if
  /// `statusDate` is nil.
  void BackOneDay_Action();
  /// Moves `statusDate` to the next day and updates the status. Raises as `BackOneDay_Action`.
  void ForwardOneDay_Action();
  /// calendar: asks for a file and writes the calendar of the year in `WhichYear` into it, from
  /// January 2 to December 31. Raises `IOException` if a line cannot be written. If the file cannot
  /// be created, only shows a message box.
  void GenerateButton_Action();
  /// ui: if the chooser has the current year, selects it and writes its default daylight-saving
  /// dates.
  void WhichYear_Open();
  /// ui: writes the default daylight-saving dates of the chosen year, if any. Updates the status.
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

  /// The handler of the window's "Open": sets `Pi`, `TwoPi`, `Rads` and `Degs`, the daylight-saving
  /// dates of the current year, the time zone and `statusDate`. Then updates the status.
  void Event_Open();

  // Sunrise and sunset, with `solar/`.

  /// Computes sunrise and sunset of a day at a place, as times of day in `zone` with daylight
  /// saving; -1.0 if the event does not exist. The search covers the UTC day of the date, so far
  /// from Greenwich the events may belong to neighbouring local days. Coordinates are in degrees
  /// and not checked. Raises `NilObjectException` for a nil day. Interpolates hourly values by
  /// parabolas: O. Montenbruck and T. Pfleger, Astronomy on the Personal Computer.
  void DoVeldrin(double latitude, double longitude, const Ref<Date>& day, double zone,
                 double& riseTime, double& setTime);
  /// Fits a parabola to values at -1, 0 and +1. It has the vertex `xe`, `ye` and `nz` roots from -1
  /// to +1. A single root is in `z1`; without roots, `z1` and `z2` may be unchanged.
  void QuadParabola(double ym, double y0, double yp, double& xe, double& ye, double& z1, double& z2,
                    std::int32_t& nz);
  /// The Modified Julian Date of a calendar date at an hour; the calendar is Julian up to
  /// 1582-10-04. Integer operations wrap around at 32 bits. From the same book.
  double ModifiedJulianDate(std::int32_t year, std::int32_t month, std::int32_t day, double hour);
  /// The whole part, truncated toward zero.
  double iPart(double x);
  /// The sine of the Sun's true altitude `hour` hours after the midnight `mjd0`, in Universal Time.
  /// `lambda` is the longitude in degrees, west positive; `cphi` and `sphi` are the cosine and sine
  /// of the latitude. Hour 24 moves `mjd0` to the next day.
  double SineAltitude(double hour, double lambda, double cphi, double sphi);
  /// The local mean sidereal time (IAU 1982), from -24 to 24 hours. `lambda` is the longitude in
  /// degrees, west positive. Sets `mjd0` to the whole part of `mjd`.
  double LocalSiderialTime(double mjd, double lambda);
  /// The fractional part, with the sign of the argument.
  double fPart(double x);
  /// The Sun's right ascension in hours and declination in degrees, `t` Julian centuries after noon
  /// of 2000-01-01, by the low-precision theory of the same book.
  void TheSun(double t, double& ra, double& dec);

  // Civil time, with `civiltime/`, and the status.

  /// A time of day for display: "06:30", or "N/A" if negative. Rounds to the minute; the hours do
  /// not wrap at 24.
  String HHMMFormat(double x);
  /// Writes the default daylight-saving dates of a year into `DSTStart` and `DSTEnd`: the second
  /// Sunday of March and the first Sunday of November, in every year.
  void SetDaylightSavingsBounds(std::int32_t year);
  /// Adds the daylight-saving hour to a time of day, and keeps it below 24, if `DaylightSavings` is
  /// ticked and daylight saving applies on the date. Does not change the date.
  void DoDaylightSavings(const Ref<Date>& d, double& t);
  /// Recomputes the status panel from the controls.
  void UpdateStatus();
  /// A time of day as six digits, "063000", or "000000" for a negative one.
  String HHMMZZ(double x);
  /// Whether daylight saving applies on a date: inside the period of `DSTStart` and `DSTEnd` or, if
  /// `DownUnderFlag` is ticked, outside it. The period includes its earlier bound; it is empty if a
  /// bound is not a date.
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
  /// calendar: writes the whole calendar of the year in `WhichYear`.
  void writeYear(TextOutputStream& stream);
};

namespace implicit {
/// The open window of this class. Creates it if there is none.
Ref<veldrin::Veldrin> Veldrin();
}  // namespace implicit

}  // namespace veldrin
