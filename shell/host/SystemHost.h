#pragma once

#include <optional>

#include "shell/host/Host.h"
#include "shell/host/LocaleTexts.h"

namespace veldrin {

/// The machine itself: its clock, the zone of `TZ` or of the system, and the date setting of the
/// environment (`LC_ALL`, `LC_TIME`, `LANG`), without a change of the C locale.
class SystemHost final : public Host {
 public:
  SystemHost();

  [[nodiscard]] std::int64_t now() const override;
  [[nodiscard]] CivilMoment localTime(std::int64_t moment) const override;
  [[nodiscard]] double offsetAt(std::int64_t moment) const override;
  /// 0 for a moment that the system's own calendar cannot hold.
  [[nodiscard]] double gmtOffset(const CivilMoment& moment) const override;
  [[nodiscard]] ShortDateForm shortDateForm() const override { return form_; }
  [[nodiscard]] std::string text(DateText which, const CivilMoment& moment) const override;

 private:
  ShortDateForm form_;
  mutable std::optional<LocaleTexts> texts_;  ///< made on first need, since few starts need them
};

}  // namespace veldrin
