#pragma once

#include <optional>

#include "shell/host/Host.h"
#include "shell/host/LocaleTexts.h"

namespace veldrin {

/// The real machine: the clock of the OS, the time zone of `TZ` or of the OS, and the locale of the
/// environment (see `LocaleTexts`).
class SystemHost final : public Host {
 public:
  SystemHost();

  [[nodiscard]] std::int64_t now() const override;
  [[nodiscard]] CivilMoment localTime(std::int64_t moment) const override;
  [[nodiscard]] double offsetAt(std::int64_t moment) const override;
  /// 0 if the year is outside -1,000,000 to 1,000,000.
  [[nodiscard]] double gmtOffset(const CivilMoment& moment) const override;
  [[nodiscard]] ShortDateForm shortDateForm() const override { return form_; }
  [[nodiscard]] std::string text(DateText which, const CivilMoment& moment) const override;

 private:
  ShortDateForm form_;
  mutable std::optional<LocaleTexts> texts_;  ///< made on first use: most runs write no such text
};

}  // namespace veldrin
