#include "calendar/OutputFile.h"
#include "daystatus/Veldrin.h"
#include "shell/files/TextOutputStream.h"
#include "shell/host/Civil.h"
#include "shell/objects/Failure.h"
#include "shell/values/Mathematics.h"
#include "shell/values/Text.h"
#include "shell/window/BackgroundTask.h"
#include "shell/window/Dialogs.h"

namespace veldrin {
namespace {

void writeHeader(TextOutputStream& stream) {
  stream.WriteLine("BEGIN:VCALENDAR"_s);
  stream.WriteLine("VERSION:2.0"_s);
  stream.WriteLine("X-WR-CALNAME;VALUE=TEXT:Sunrise and Sunset"_s);
  stream.WriteLine("X-WR-TIMEZONE:US/Pacific"_s);
  stream.WriteLine("PRODID:-//Quorvex//Marnoth 1.0//EN"_s);
  stream.WriteLine("CALSCALE:GREGORIAN"_s);
}

/// Writes one event. `summary` is the whole line "SUMMARY: ..."; the blank after the colon is part
/// of the value. `time` is six digits: hours, minutes, seconds.
void writeEvent(TextOutputStream& stream, const String& summary, const String& yearText,
                const String& monthText, const Date& day, const String& time) {
  stream.WriteLine("BEGIN:VEVENT"_s);
  stream.WriteLine(summary);
  stream.WriteLine("DTSTART:"_s + yearText + monthText + Format(day.Day(), "00"_s) + "T"_s + time);
  stream.WriteLine("END:VEVENT"_s);
}

/// Creates the file and opens it for writing. On failure, shows a message and returns nil.
Ref<TextOutputStream> openStream(const Ref<FolderItem>& item) {
  try {
    return TextOutputStream::Create(item);
  } catch (...) {
    MsgBox("Cannot write to "_s + item->AbsolutePath());
    return nullptr;
  }
}

}  // namespace

void Veldrin::GenerateButton_Action() {
  const Ref<FolderItem> item =
      GetSaveFolderItem(OutputFile::Calendar()->Operator_Convert(), "Veldrin.ics"_s);
  if (!item) return;
  const Ref<TextOutputStream> stream = openStream(item);
  if (!stream) return;
  try {
    writeYear(*stream);
  } catch (const Raised& raised) {
    stream->noteIncomplete(*raised.exception);
    throw;
  }
  stream->Close();
}

void Veldrin::writeYear(TextOutputStream& stream) {
  writeHeader(stream);
  const Ref<Date> date = newDate();
  date->Constructor();
  date->Year(RuntimeCvtReal64ToSInt32(Val(WhichYear()->Text())));
  date->Month(1);
  date->Day(1);
  const std::int32_t year = date->Year();
  const String yearText = Str(date->Year());
  for (std::int32_t pass = 1; pass <= 366; ++pass) {
    // Steps before writing, so January 1 is never written.
    date->TotalSeconds(date->TotalSeconds() + SecondsOfDay);
    if (date->Year() != year) break;
    const double latitude = Val(Latitude()->Text());
    const double longitude = Val(Longitude()->Text());
    const double zone = Val(TimeZone()->Text());
    double riseTime = 0.0;
    double setTime = 0.0;
    DoVeldrin(latitude, longitude, date, zone, riseTime, setTime);
    const String monthText = Format(date->Month(), "00"_s);
    if (riseTime < 0.0 || setTime < 0.0) {
      writeEvent(stream, "SUMMARY: No sunrise or sunset"_s, yearText, monthText, *date, "120000"_s);
    } else {
      writeEvent(stream, "SUMMARY: Sunrise at "_s + HHMMFormat(riseTime), yearText, monthText,
                 *date, HHMMZZ(riseTime));
      writeEvent(stream, "SUMMARY: Sunset at "_s + HHMMFormat(setTime), yearText, monthText, *date,
                 HHMMZZ(setTime));
    }
    RuntimeBackgroundTask();
  }
  stream.WriteLine("END:VCALENDAR"_s);
}

}  // namespace veldrin
