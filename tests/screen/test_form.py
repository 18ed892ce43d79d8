"""The form on the screen and for a screen reader."""

import re
from pathlib import Path

from case import ScreenTest
from desktop import until

LABEL, FIELD, BOX = "label", "text", "check box"
ROLES = {"Placard": "filler", "StaticText": LABEL, "PushButton": "push button",
         "PopupMenu": "combo box", "TextField": FIELD, "CheckBox": BOX}

# The spoken names that differ from the text of the control.
SPOKEN = {"BackOneDay": "Previous day", "ForwardOneDay": "Next day", "WhichYear": "2008",
          "DSTEnd": "End Date", "DSTStart": "Start Date", "Latitude": "Latitude",
          "TimeZone": "Standard Time Zone", "Longitude": "Longitude"}


def controls() -> list[tuple]:
    """Role, name and place in the content of the window, for each control of the form."""
    table = (Path(__file__).parents[2] / "daystatus/FormTable.h").read_text()
    row = r'{(\w+), +"(\w+)", +"\w*", +' + r"(\d+), +" * 4 + r'\d+, +"?([^",}]*)'
    return [(ROLES[kind], SPOKEN.get(name, text), tuple(map(int, place)))
            for kind, name, *place, text in re.findall(row, table)]


FOCUS_ORDER = [
    "Latitude", "Standard Time Zone", "Longitude", "End Date", "Start Date", "Down Under",
    "Daylight Savings Time", "Previous day", "Next day", "Generate iCal For", "2008",
]


class FormTest(ScreenTest):
    def test_every_control_has_its_role_name_and_place(self) -> None:
        left, top, *size = next(self.find("frame", "Veldrin").parts()).place
        self.assertEqual(size, [350, 420])
        told = []
        for control in self.controls():
            x, y, width, height = control.place
            told.append((control.role, control.name, (x - left, y - top, width, height)))
        status = self.status()
        self.assertRegex(status, r"^\d+/\d+/\d{4}\nSunrise = \d\d:\d\d\nSunset = \d\d:\d\d$")
        self.assertEqual(told, [(role, name or status if role == LABEL else name, place)
                                for role, name, place in controls()])
        self.assertEqual(self.find("combo box", "2008").description, "Year")
        texts = [self.field(name).text for name in FOCUS_ORDER[:3]]
        self.assertEqual(texts, ["47.5", "-8", "-122.5"])
        self.assertTrue(self.find(BOX, "Daylight Savings Time").is_("checked"))
        self.assertFalse(self.find(BOX, "Down Under").is_("checked"))

    def test_tab_visits_the_form_in_order_and_starts_again(self) -> None:
        for name in [*FOCUS_ORDER[1:], FOCUS_ORDER[0]]:
            self.desktop.key("Tab")
            self.await_focus(name)

    def test_a_new_status_is_announced(self) -> None:
        before = self.status()
        self.desktop.key(*["shift+Tab"] * (len(FOCUS_ORDER) - FOCUS_ORDER.index("Next day")))
        self.await_focus("Next day")
        self.listener.listen()
        self.desktop.key("space")
        heard = until(self.listener.heard, "an announcement")
        self.assertNotEqual(self.status(), before)
        self.assertEqual(heard, [(LABEL, self.status())])
