"""readers.py VELDRIN-CALENDAR: what two readers find in its standard document."""
import subprocess
import sys

import icalendar
import vobject

PLACE = "Tromsø; Norge, \\69°: " + "東" * 60
text = subprocess.run(
    [sys.argv[1], "--standard", "--latitude=69.6492", "--longitude=18.9553", "--time-zone=1", "--year=2026",
     "--place=" + PLACE, "--remind=15", "--output=-"], check=True, stdout=subprocess.PIPE).stdout.decode()

one = [(str(event["UID"]), event.decoded("DTSTART"), event.decoded("DTEND"), str(event["SUMMARY"]),
        str(event["LOCATION"]), [alarm.decoded("TRIGGER") for alarm in event.subcomponents])
       for event in icalendar.Calendar.from_ical(text).walk("VEVENT")]
other = [(event.uid.value, event.dtstart.value, event.dtend.value, event.summary.value,
          event.location.value, [alarm.trigger.value for alarm in event.contents.get("valarm", [])])
         for event in vobject.readOne(text).vevent_list]
assert len(one) == 614 and len({event[0] for event in one}) == 614, len(one)
assert one == other, next(pair for pair in zip(one, other) if pair[0] != pair[1])
assert {event[4] for event in one} == {PLACE}
assert sum(len(event[5]) for event in one) == sum(event[3] in ("Sunrise", "Sunset") for event in one) == 498
