"""The base class of the screen tests: starts, operates and reads the program."""

import os
import subprocess
import unittest

from desktop import TIME_OUT, Desktop, until
from spoken import Listener, Node


class ScreenTest(unittest.TestCase):
    """Each test starts with the program in the zone PST8PDT and the focus in the field Latitude."""

    language = "C.UTF-8"
    desktop: Desktop
    listener: Listener
    tree: Node

    @classmethod
    def setUpClass(cls) -> None:
        cls.desktop = cls.enterClassContext(Desktop())
        cls.desktop.environment |= {"LC_ALL": cls.language, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        cls.listener = Listener(cls.desktop.environment)

    def setUp(self) -> None:
        self.program = self.desktop.start(os.environ["VELDRIN"], stderr=subprocess.PIPE, text=True)
        self.addCleanup(Desktop.end, self.program)
        self.tree = until(lambda: self.listener.program(self.program.pid), "the program's tree")
        self.await_focus("Latitude")

    def find(self, role: str, name: str) -> Node:
        """Waits for a visible control or window with that role and name, and returns it."""

        def found() -> Node | None:
            shown = self.tree.shown()
            return next((node for node in shown if (node.role, node.name) == (role, name)), None)

        return until(found, f"{role} {name!r}")

    def field(self, name: str) -> Node:
        return self.find("text", name)

    def await_text(self, name: str, text: str) -> None:
        until(lambda: self.field(name).text == text, f"{text!r} in {name}")

    def await_focus(self, name: str) -> None:
        """Waits until the control of that name has the focus, in the active window."""
        until(lambda: any(window.is_("active") for window in self.tree.parts()) and
              any(node.name == name and node.is_("focused") for node in self.tree.shown()),
              f"the focus at {name}")

    def await_status(self, *options: str) -> None:
        """Waits until the status equals what veldrin-calendar prints for its day with these options."""
        until(lambda: self.status() == self.expected_status(*options), f"the status of {options}")

    def controls(self) -> list[Node]:
        """The controls, in the order of creation."""
        return list(next(self.find("frame", "Veldrin").parts()).parts())

    def status(self) -> str:
        return self.controls()[1].name

    def expected_status(self, *options: str) -> str:
        day = self.status().splitlines()[0]
        return self.calendar_output(f"--status={day}", *options).decode().strip()

    def calendar_output(self, *options: str) -> bytes:
        """The output of veldrin-calendar."""
        return subprocess.run([os.environ["VELDRIN_CALENDAR"], *options], check=True,
                              env=self.desktop.environment, cwd=self.desktop.home,
                              stdout=subprocess.PIPE, timeout=TIME_OUT).stdout

    def click(self, role: str, name: str) -> None:
        """Clicks the middle of the control with that role and name."""
        x, y, width, height = self.find(role, name).place
        self.desktop.click(x + width // 2, y + height // 2)

    def save_as(self, path: str) -> None:
        """Presses the button, types the path into the dialog and presses Return."""
        self.click("push button", "Generate iCal For")
        self.await_focus("File name:")
        self.desktop.key("ctrl+a")
        self.desktop.type(path)
        self.await_text("File name:", path)
        self.desktop.key("Return")

    def wait_for_end(self) -> tuple[int, str]:
        """Waits for the end; returns the exit status and the standard error."""
        _, complaint = self.program.communicate(timeout=TIME_OUT)
        return self.program.returncode, complaint
