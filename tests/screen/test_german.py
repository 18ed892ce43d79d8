"""A desktop with German settings: dates are its own, numbers keep their point."""

import locale
import unittest

from case import ScreenTest

try:
    locale.setlocale(locale.LC_TIME, "de_DE.UTF-8")
    installed = True
except locale.Error:
    installed = False


@unittest.skipUnless(installed, "de_DE.UTF-8 is missing; LOCPATH can name its folder")
class GermanTest(ScreenTest):
    language = "de_DE.UTF-8"

    def test_dates_are_shown_and_read_in_the_german_form(self) -> None:
        german = r"\d+\.\d+\.\d{4}"
        self.assertRegex(self.status(), rf"^{german}\nSunrise = \d\d:\d\d\nSunset = \d\d:\d\d$")
        self.assertRegex(self.field("End Date").text, rf"^{german}$")
        summer = ("--dst-start=01.01.2000", "--dst-end=31.12.2999")
        for name, date in (("Start Date", "1.1.2000"), ("End Date", "31.12.2999")):
            self.click("text", name)
            self.desktop.key("ctrl+a")
            self.desktop.type(date)
            self.await_text(name, date)
        # To leave the latitude, which is read again, is what makes the new dates count.
        self.click("text", "Latitude")
        self.desktop.key("Tab")
        self.await_status("--latitude=47.5", *summer)
        in_summer = self.status()
        self.click("check box", "Daylight Savings Time")
        self.await_status("--latitude=47.5", "--no-dst")
        self.assertNotEqual(self.status(), in_summer)
