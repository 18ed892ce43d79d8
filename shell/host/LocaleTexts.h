#pragma once

#include <clocale>
#include <memory>
#include <string>
#include <type_traits>

#include "shell/host/DatePattern.h"

namespace veldrin {

/// The environment's date setting (`LC_ALL`, `LC_TIME`, `LANG`), without a change of the C locale;
/// the C locale's own where it names none that is installed.
class LocaleTexts {
 public:
  LocaleTexts();

  /// A local moment in the names and the order of the setting, as UTF-8. A year before
  /// -2,147,481,748, which the system's calendar cannot hold, is shown as that one.
  [[nodiscard]] std::string text(DateText which, const CivilMoment& moment) const;

 private:
  struct Freed {
    void operator()(locale_t locale) const { freelocale(locale); }
  };

  std::unique_ptr<std::remove_pointer_t<locale_t>, Freed> locale_;
};

}  // namespace veldrin
