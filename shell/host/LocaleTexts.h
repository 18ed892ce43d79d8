#pragma once

#include <clocale>
#include <memory>
#include <string>
#include <type_traits>

#include "shell/host/Host.h"

namespace veldrin {

/// Writes dates and times in the locale of the environment (`LC_ALL`, `LC_TIME`, `LANG`). If it is
/// not installed, the locale "C" replaces it. Never changes the process's C locale.
class LocaleTexts {
 public:
  LocaleTexts();

  /// A local moment with the names and the order of the locale, in UTF-8. A year before
  /// -2,147,481,748 does not fit in `tm` and is shown as -2,147,481,748.
  [[nodiscard]] std::string text(DateText which, const CivilMoment& moment) const;

 private:
  struct FreeLocale {
    void operator()(locale_t locale) const { freelocale(locale); }
  };

  std::unique_ptr<std::remove_pointer_t<locale_t>, FreeLocale> locale_;
};

}  // namespace veldrin
