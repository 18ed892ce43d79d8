"""The form as it stands on the screen, and as a screen reader meets it."""

from case import ScreenTest
from desktop import until

PANEL, LABEL, BUTTON, FIELD, BOX = "filler", "label", "push button", "text", "check box"

# Role, name, and place in the content of the window; the one label with no text here is the status.
CONTROLS = [
    (PANEL, "", (21, 256, 309, 140)),
    (LABEL, "", (75, 325, 206, 61)),
    (BUTTON, "Previous day", (28, 345, 27, 20)),
    (BUTTON, "Next day", (297, 345, 27, 20)),
    (BUTTON, "Generate iCal For", (94, 265, 181, 20)),
    ("combo box", "2008", (97, 293, 178, 20)),
    (PANEL, "", (21, 133, 309, 110)),
    (FIELD, "End Date", (174, 215, 101, 22)),
    (LABEL, "End Date", (56, 217, 100, 20)),
    (FIELD, "Start Date", (174, 187, 101, 22)),
    (LABEL, "Start Date", (56, 188, 100, 20)),
    (BOX, "Down Under", (97, 162, 178, 20)),
    (BOX, "Daylight Savings Time", (97, 139, 178, 20)),
    (PANEL, "", (21, 19, 309, 100)),
    (LABEL, "Latitude", (56, 28, 100, 20)),
    (FIELD, "Latitude", (174, 26, 101, 22)),
    (FIELD, "Standard Time Zone", (174, 89, 101, 22)),
    (FIELD, "Longitude", (174, 54, 101, 22)),
    (LABEL, "Longitude", (56, 61, 100, 20)),
    (LABEL, "Standard Time Zone", (29, 90, 127, 20)),
    (LABEL, "v6", (5, 400, 24, 20)),
]

FOCUS_ORDER = [
    "Latitude", "Standard Time Zone", "Longitude", "End Date", "Start Date", "Down Under",
    "Daylight Savings Time", "Previous day", "Next day", "Generate iCal For", "2008",
]


class FormTest(ScreenTest):
    def test_every_control_is_told_with_role_name_and_place(self) -> None:
        left, top, *size = next(self.find("frame", "Veldrin").parts()).place
        self.assertEqual(size, [350, 420])
        told = []
        for control in self.controls():
            x, y, width, height = control.place
            told.append((control.role, control.name, (x - left, y - top, width, height)))
        status = self.status()
        self.assertRegex(status, r"^\d+/\d+/\d{4}\nSunrise = \d\d:\d\d\nSunset = \d\d:\d\d$")
        self.assertEqual(told, [(role, name or status if role == LABEL else name, place)
                                for role, name, place in CONTROLS])
        self.assertEqual(self.find("combo box", "2008").description, "Year")
        texts = [self.field(name).text for name in FOCUS_ORDER[:3]]
        self.assertEqual(texts, ["47.5", "-8", "-122.5"])
        self.assertTrue(self.find(BOX, "Daylight Savings Time").is_("checked"))
        self.assertFalse(self.find(BOX, "Down Under").is_("checked"))

    def test_tab_goes_through_the_form_and_round(self) -> None:
        for name in [*FOCUS_ORDER[1:], FOCUS_ORDER[0]]:
            self.desktop.key("Tab")
            self.await_focus(name)

    def test_a_new_status_is_announced(self) -> None:
        before = self.status()
        self.desktop.key("shift+Tab", "shift+Tab", "shift+Tab")
        self.await_focus("Next day")
        self.listener.listen()
        self.desktop.key("space")
        heard = until(self.listener.heard, "an announcement")
        self.assertNotEqual(self.status(), before)
        self.assertEqual(heard, [(LABEL, self.status())])
