#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "shell/objects/Failure.h"
#include "shell/values/Date.h"
#include "tests/support/FakeHost.h"

namespace veldrin::test {

/// The bounds of the framework's integers.
inline constexpr std::int32_t Smallest = std::numeric_limits<std::int32_t>::min();
inline constexpr std::int32_t Largest = std::numeric_limits<std::int32_t>::max();

/// Puts a host in force, at 2024-06-21 12:00, daylight-saving time, UTC-7.
class ValuesTest : public testing::Test {
 protected:
  ValuesTest() { host.setClock({2024, 6, 21, 12, 0, 0}, -7.0); }

  FakeHost host;
  const InForce<Host> hostInForce{host};
};

/// A date with this day and the host's time of day.
inline Ref<Date> dayOf(std::int32_t year, std::int32_t month, std::int32_t day) {
  Ref<Date> date = New<Date>();
  date->Year(year);
  date->Month(month);
  date->Day(day);
  return date;
}

/// Runs the call. Returns the full class name of the exception that it raises, or "".
template <class Call>
std::string raisedBy(Call&& call) {
  try {
    call();
  } catch (const Raised& raised) {
    return std::string(raised.exception->classRecord()->name.view());
  }
  return "";
}

inline std::string text(const String& string) {
  return std::string(string.view());
}

}  // namespace veldrin::test
