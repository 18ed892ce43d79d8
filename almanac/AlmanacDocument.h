#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "almanac/Almanac.h"

namespace veldrin {

/// A kind of event: its identifier and its text for the user.
struct EventKind {
  std::string_view identifier;  ///< "civil-dawn"
  std::string_view summary;     ///< "Civil dawn"
};

/// Builds an iCalendar document. The constructor writes the header; add events, then call
/// `finish()`. Days are numbered as in shell/host/Civil.h; minutes count from 1970-01-01 00:00 UTC.
class AlmanacDocument {
 public:
  AlmanacDocument(const Place& place, const AlmanacOptions& options);

  /// Adds an all-day event on a local day.
  void addDay(const EventKind& kind, std::int64_t day);

  /// Adds an event of one minute: some programs show an event without an end as one hour long, and
  /// others reject an event that ends when it begins. `ordinal` numbers the events of a kind on a
  /// local day from 1. `hasReminder` has no effect if the options have no reminder.
  void addMoment(const EventKind& kind, std::int64_t day, std::int64_t ordinal, std::int64_t minute,
                 bool hasReminder);

  /// Writes the end and returns the whole text. Add nothing afterwards.
  std::string finish() &&;

 private:
  void line(std::string_view name, std::string_view value);
  void dayLine(std::string_view name, std::int64_t day);
  void momentLine(std::string_view name, std::int64_t minute);
  void begin(const EventKind& kind, std::int64_t day, std::int64_t ordinal);
  void end(const EventKind& kind, bool hasReminder);

  std::string text_;
  std::string line_;     // the current line; a member to save allocations
  std::string suffix_;   // the end of each UID
  std::string stamp_;    // the DTSTAMP line of each event
  std::string common_;   // the other lines that are the same in every event
  std::string trigger_;  // the TRIGGER line of each reminder; empty for no reminders
};

}  // namespace veldrin
