"""The Edit menu, and the keys that edit, move the focus and quit."""

from datetime import datetime, timedelta

from case import ScreenTest
from desktop import until


class EditingTest(ScreenTest):
    def choose(self, menu: str, item: str) -> None:
        """Chooses a menu item by mouse."""
        self.click("menu item", menu)
        self.click("menu item", item)

    def open_by_keys(self, menu: str, item: str) -> None:
        """Opens the menu by Alt and its letter, and waits for the item."""
        self.desktop.hold("alt", menu)
        self.find("menu item", item)

    def day(self) -> datetime:
        return datetime.strptime(self.status().splitlines()[0], "%m/%d/%Y")

    def test_the_edit_menu_acts_on_the_focused_field(self) -> None:
        before = self.status()
        self.choose("Edit", "Copy")
        self.await_focus("Latitude")
        self.assertEqual(self.field("Latitude").selection, "47.5")
        self.desktop.key("Delete")
        self.await_text("Latitude", "")
        self.choose("Edit", "Undo")
        self.await_text("Latitude", "47.5")
        self.choose("Edit", "Select All")
        until(lambda: self.field("Latitude").selection == "47.5", "the selection")
        self.desktop.key("Alt_L", "e")  # the menu bar has the focus while the menu is open
        self.find("menu item", "Cut")
        self.assertEqual(self.field("Latitude").selection, "47.5")
        self.desktop.key("t")
        self.await_text("Latitude", "")
        self.desktop.key("ctrl+v", "ctrl+v", "ctrl+a", "ctrl+c", "Right", "BackSpace", "BackSpace")
        self.await_text("Latitude", "47.547")
        self.assertEqual(self.status(), before)
        self.desktop.key("ctrl+a")
        self.desktop.type("-33.25")
        self.await_text("Latitude", "-33.25")
        self.assertEqual(self.status(), before)
        self.desktop.key("Tab")
        self.await_status("--latitude=-33.25")

    def test_return_and_escape_press_no_button(self) -> None:
        keys = ("Return", "KP_Enter", "Escape")
        today = self.day()
        self.desktop.type("12.5")
        self.desktop.key(*keys, *["Tab"] * 7, *keys, "Tab", *keys, "Tab", *keys)
        self.await_focus("Generate iCal For")
        self.await_status("--latitude=12.5")
        self.assertEqual(self.day(), today)
        self.desktop.key("shift+Tab", "space")
        until(lambda: self.day() != today, "the next day")
        self.assertEqual(self.day(), today + timedelta(days=1))

    def test_every_way_to_quit_ends_with_status_0(self) -> None:
        for key in ("ctrl+q", "q", "alt+F4"):
            self.desktop.type("12")  # the focus stays in the field
            self.await_text("Latitude", "12")
            if key == "q":
                self.open_by_keys("f", "Quit")
            self.desktop.key(key)
            self.assertEqual(self.wait_for_end(), (0, ""))
            self.setUp()
