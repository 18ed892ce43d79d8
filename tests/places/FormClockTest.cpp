#include "places/FormClock.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "places/PlaceFault.h"
#include "places/Zone.h"

namespace veldrin::test {
namespace {

std::string text(const CivilDay& day) {
  return std::to_string(day.year) + '-' + std::to_string(day.month) + '-' + std::to_string(day.day);
}

/// "zone", "zone: first second" or "zone: first second down under", or the message of the fault.
std::string formOf(const std::string& zone, std::int64_t year) {
  try {
    const Zone found = zoneNamed(ZoneFolder::ofMachine(), zone, year, year);
    const FormClock clock = formClock(found.name, found.rules, year);
    if (!clock.saving) return clock.zone;
    return clock.zone + ": " + text(clock.saving->first) + ' ' + text(clock.saving->second) +
           (clock.saving->isDownUnder ? " down under" : "");
  } catch (const PlaceFault& fault) {
    return fault.what();
  }
}

std::string refusal(const std::string& zone, std::int64_t year) {
  return "Two dates and one hour cannot describe the clocks of " + zone + " in " +
         std::to_string(year) + "; use --standard.";
}

TEST(FormClockTest, DescribesZonesInTheTermsOfTheForm) {
  const struct {
    const char* zone;
    std::int64_t year;
    std::string form;
  } rows[] = {
      {"Etc/UTC", 2024, "0"},
      {"Etc/GMT+8", 2024, "-8"},
      {"Asia/Kolkata", 2024, "5.5"},
      {"Asia/Kathmandu", 2024, "5.75"},
      {"Africa/Monrovia", 1960, "-0.7416666666666667"},
      {"Europe/Oslo", 2024, "1: 2024-3-31 2024-10-27"},
      {"Europe/Dublin", 2024, "0: 2024-3-31 2024-10-27"},
      {"America/Los_Angeles", 2024, "-8: 2024-3-10 2024-11-3"},
      {"Australia/Sydney", 2024, "10: 2024-4-7 2024-10-6 down under"},
      {"Pacific/Chatham", 2024, "12.75: 2024-4-7 2024-9-29 down under"},
      {"Africa/Casablanca", 2024, "0: 2024-3-10 2024-4-14 down under"},
      {"America/Sao_Paulo", 2019, "-3: 2019-1-1 2019-2-17"},
      {"Pacific/Apia", 2010, "-11: 2010-9-26 2011-1-1"},
      {"Europe/Istanbul", 2016, "2: 2016-3-27 2017-1-1"},
      {"Pacific/Apia", 2011, refusal("Pacific/Apia", 2011)},
      {"Africa/Casablanca", 2014, refusal("Africa/Casablanca", 2014)},
      {"Europe/Amsterdam", 1940, refusal("Europe/Amsterdam", 1940)},
      {"Australia/Lord_Howe", 2024, refusal("Australia/Lord_Howe", 2024)},
      {"Asia/Pyongyang", 2015, refusal("Asia/Pyongyang", 2015)},
      {"Pacific/Kwajalein", 1993, refusal("Pacific/Kwajalein", 1993)},
  };
  for (const auto& row : rows) EXPECT_EQ(formOf(row.zone, row.year), row.form) << row.zone;
}

}  // namespace
}  // namespace veldrin::test
