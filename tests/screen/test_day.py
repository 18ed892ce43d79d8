"""A day and a calendar on a desktop with German settings: German dates, but decimal points."""

from case import ScreenTest
from desktop import until

# With these inputs each step below changes the status on any day of the year.
INPUTS = ("--longitude=0.5", "--time-zone=-8", "--year=2012",
             "--dst-start=11.3.2012", "--dst-end=31.12.2999")


class DayTest(ScreenTest):
    language = "de_DE.UTF-8"

    def test_inputs_change_the_status_and_the_calendar(self) -> None:
        self.click("combo box", "2008")
        self.click("list item", "2012")
        self.find("combo box", "2012")
        self.await_text("Start Date", "11.3.2012")
        self.await_text("End Date", "4.11.2012")

        before = self.status()
        self.assertRegex(before, r"^\d+\.\d+\.\d{4}\nSunrise = \d\d:\d\d\nSunset = \d\d:\d\d$")
        for name, text in (("End Date", "31.12.2999"), ("Longitude", "0.5")):
            self.click("text", name)
            self.desktop.key("ctrl+a")
            self.desktop.type(text)
            self.await_text(name, text)
        self.assertEqual(self.status(), before)
        self.desktop.key("Tab")
        self.await_status(*INPUTS)
        self.assertNotEqual(self.status(), before)

        status_today = self.status()
        self.click("push button", "Next day")
        until(lambda: self.status() != status_today, "the next day")
        self.await_status(*INPUTS)
        self.desktop.key("shift+Tab", "space")
        until(lambda: self.status() == status_today, "the day before")

        self.click("check box", "Down Under")
        until(lambda: self.find("check box", "Down Under").is_("checked"), "the tick")
        self.await_status(*INPUTS, "--down-under")
        self.assertNotEqual(self.status(), status_today)

        file = self.desktop.home / "made on a screen.ics"
        self.save_as(str(file))
        ending = b"END:VCALENDAR\r\n"
        until(lambda: file.exists() and file.read_bytes().endswith(ending), "the whole calendar")
        expected = self.calendar_output(*INPUTS, "--down-under", "--output=-")
        self.assertTrue(file.read_bytes() == expected, "the calendar differs from that of veldrin-calendar")
