#pragma once

#include <functional>

#include "shell/host/Host.h"

namespace veldrin::test {

/// A host whose time and zone a test sets. The clock does not run.
class FakeHost final : public Host {
 public:
  /// The UTC offset in seconds at a moment, in seconds since 1970-01-01 UTC.
  using Zone = std::function<std::int64_t(std::int64_t)>;

  std::int64_t moment = 0;
  Zone zone = [](std::int64_t) { return std::int64_t{0}; };
  ShortDateForm form;

  /// Sets the clock to a local moment, and the zone to a fixed UTC offset.
  void setClock(const CivilMoment& local, double hours = 0.0) {
    const auto offset = static_cast<std::int64_t>(hours * 3600.0);
    zone = [offset](std::int64_t) { return offset; };
    moment = secondsOf(local) - offset;
  }

  [[nodiscard]] std::int64_t now() const override { return moment; }
  [[nodiscard]] CivilMoment localTime(std::int64_t at) const override {
    const std::int64_t local = at + zone(at);
    const std::int64_t rest = ((local % 86400) + 86400) % 86400;
    const CivilDay day = civilDay((local - rest) / 86400);
    return {static_cast<std::int32_t>(day.year),
            day.month,
            day.day,
            static_cast<std::int32_t>(rest / 3600),
            static_cast<std::int32_t>(rest / 60 % 60),
            static_cast<std::int32_t>(rest % 60)};
  }
  [[nodiscard]] double offsetAt(std::int64_t at) const override {
    return static_cast<double>(zone(at)) / 3600.0;
  }
  [[nodiscard]] double gmtOffset(const CivilMoment& local) const override {
    // Wrong at some times within hours of a change of the offset.
    const std::int64_t guess = secondsOf(local) - zone(secondsOf(local));
    return offsetAt(guess);
  }
  [[nodiscard]] ShortDateForm shortDateForm() const override { return form; }
  /// The number of the requested form, and the day: "0 of 21".
  [[nodiscard]] std::string text(DateText which, const CivilMoment& at) const override {
    return std::to_string(int(which)) + " of " + std::to_string(at.day);
  }

 private:
  static std::int64_t secondsOf(const CivilMoment& local) {
    const std::int64_t hours = dayNumber(local.year, local.month, local.day) * 24 + local.hour;
    return (hours * 60 + local.minute) * 60 + local.second;
  }
};

}  // namespace veldrin::test
