#pragma once

#include <string_view>

#include "shell/Host.h"

namespace veldrin {

/// The machine itself: its clock, the zone of `TZ` or of the system, and the date setting of the
/// environment (`LC_ALL`, `LC_TIME`, `LANG`), without a change of the C locale.
class SystemHost final : public Host {
 public:
  SystemHost();

  [[nodiscard]] std::int64_t now() const override;
  [[nodiscard]] CivilMoment localTime(std::int64_t moment) const override;
  /// 0 for a moment that the system's own calendar cannot hold.
  [[nodiscard]] double gmtOffset(const CivilMoment& moment) const override;
  [[nodiscard]] ShortDateForm shortDateForm() const override { return form_; }

 private:
  ShortDateForm form_;
};

/// The form that a pattern of strftime describes, such as "%d.%m.%Y"; month/day/year with "/" for a
/// pattern that does not name all three numbers.
ShortDateForm shortDateFormOf(std::string_view pattern);

}  // namespace veldrin
