"""Files that already exist or cannot be written, and a signal while the save dialog is open."""

import signal

from case import ScreenTest
from desktop import until


class SavingTest(ScreenTest):
    def test_a_file_that_fails_to_open_shows_a_message_and_keeps_the_window(self) -> None:
        before = self.status()
        nowhere = str(self.desktop.home / "no folder" / "Veldrin.ics")
        self.save_as(nowhere)
        self.find("label", "Cannot write to " + nowhere)
        self.await_focus("OK")
        self.desktop.key("Return")
        self.await_focus("Generate iCal For")
        self.click("push button", "Next day")
        until(lambda: self.status() != before, "the next day")

    def test_a_file_that_is_not_replaced_keeps_its_content(self) -> None:
        file = self.desktop.home / "old.ics"
        file.write_text("old")
        self.save_as(str(file))
        self.find("label", "old.ics already exists.\nDo you want to replace it?")
        self.await_focus("No")
        self.desktop.key("Return")
        self.await_focus("File name:")
        self.desktop.key("Escape")
        self.await_focus("Generate iCal For")
        self.assertEqual(file.read_text(), "old")

    def test_a_full_disk_is_reported_and_ends_the_program(self) -> None:
        self.save_as("/dev/full")
        self.await_focus("No")
        self.click("push button", "Yes")
        reason = "/dev/full is incomplete: No space left on device (IOException, error 28)"
        self.find("label", reason)
        self.await_focus("OK")
        self.desktop.key("Return")
        self.assertEqual(self.wait_for_end(), (1, f"veldrin: {reason}\n"))

    def test_a_signal_ends_the_program_with_an_open_dialog(self) -> None:
        self.click("push button", "Generate iCal For")
        self.await_focus("File name:")
        self.program.terminate()
        self.assertEqual(self.wait_for_end(), (128 + signal.SIGTERM, ""))
