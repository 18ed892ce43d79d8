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

/// Builds an iCalendar document: the constructor writes the header, then add events, then finish.
/// Days are numbered as in shell/host/Civil.h; minutes count from 1970-01-01 00:00 UTC.
class AlmanacDocument {
 public:
  AlmanacDocument(const Place& place, const AlmanacOptions& options);

  /// Adds an event of the whole local day.
  void addDay(const EventKind& kind, std::int64_t day);

  /// Adds an event at a minute. `ordinal` numbers the events of a kind on a local day from 1. The
  /// event lasts one minute: some programs show an event without an end as an hour, and others
  /// reject an event that ends when it begins.
  void addMoment(const EventKind& kind, std::int64_t day, std::int64_t ordinal, std::int64_t minute,
                 bool reminds);

  /// Writes the end and returns the whole text. Add nothing afterwards.
  std::string finish() &&;

 private:
  void line(std::string_view name, std::string_view value);
  void dayLine(std::string_view name, std::int64_t day);
  void momentLine(std::string_view name, std::int64_t minute);
  void begin(const EventKind& kind, std::int64_t day, std::int64_t ordinal);
  void end(const EventKind& kind, bool reminds);

  std::string text_;
  std::string line_;     // the current line; a member to save allocations
  std::string suffix_;   // of each identifier
  std::string stamp_;    // the DTSTAMP line of each event
  std::string common_;   // the other lines that every event has
  std::string trigger_;  // of the reminders, empty for none
};

}  // namespace veldrin
