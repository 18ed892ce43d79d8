"""readers.py VELDRIN-CALENDAR: reads the program's output with two calendar readers and an XML reader."""
import subprocess
import sys
from xml.etree import ElementTree

import icalendar
import vobject

PLACE = "Tromsø; Norge, \\69°: " + "東" * 60
TOWN = ["--zone=Europe/Oslo", "--latitude=69.6492", "--longitude=18.9553", "--year=2026", "--place=" + PLACE]


def written(*options: str) -> str:
    return subprocess.run([sys.argv[1], *TOWN, *options], check=True, stdout=subprocess.PIPE).stdout.decode()


text = written("--standard", "--years=2", "--remind=15", "--output=-")

one = [(str(event["UID"]), event.decoded("DTSTART"), event.decoded("DTEND"), str(event["SUMMARY"]),
        str(event["LOCATION"]), [alarm.decoded("TRIGGER") for alarm in event.subcomponents])
       for event in icalendar.Calendar.from_ical(text).walk("VEVENT")]
other = [(event.uid.value, event.dtstart.value, event.dtend.value, event.summary.value,
          event.location.value, [alarm.trigger.value for alarm in event.contents.get("valarm", [])])
         for event in vobject.readOne(text).vevent_list]
assert len(one) == 1227 and len({event[0] for event in one}) == 1227, len(one)
assert one == other, next(pair for pair in zip(one, other) if pair[0] != pair[1])
assert {event[4] for event in one} == {PLACE}
assert "TRIGGER:-PT0M" in written("--standard", "--remind=0", "--output=-")
assert sum(len(event[5]) for event in one) == sum(event[3] in ("Sunrise", "Sunset") for event in one) == 994

picture = ElementTree.fromstring(written("--chart=-"))
assert PLACE in picture.findtext("{http://www.w3.org/2000/svg}title")
