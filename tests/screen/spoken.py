"""A program as a screen reader sees it: the tree of its windows and controls."""

import os
from collections.abc import Iterator

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402


class Node:
    """A window, a control or a part of one. After its removal it has no parts and no states."""

    def __init__(self, accessible: Atspi.Accessible):
        self._accessible = accessible
        self.role: str = accessible.get_role_name()
        self.name: str = accessible.get_name()

    @property
    def description(self) -> str:
        return self._accessible.get_description()

    @property
    def text(self) -> str:
        """The text of a field."""
        return Atspi.Text.get_text(self._accessible, 0, -1)

    @property
    def selection(self) -> str:
        """The selected text of a field."""
        selected = Atspi.Text.get_selection(self._accessible, 0)
        return self.text[selected.start_offset : selected.end_offset]

    @property
    def place(self) -> tuple[int, int, int, int]:
        """Left, top, width and height on the screen, in pixels."""
        box = Atspi.Component.get_extents(self._accessible, Atspi.CoordType.SCREEN)
        return box.x, box.y, box.width, box.height

    def is_(self, state: str) -> bool:
        """Whether it has a state, such as "focused"."""
        try:
            states = self._accessible.get_state_set()
        except GLib.GError:
            return False
        return states.contains(getattr(Atspi.StateType, state.upper()))

    def parts(self) -> Iterator["Node"]:
        """Its direct parts, in order."""
        try:
            for index in range(self._accessible.get_child_count()):
                if (child := self._accessible.get_child_at_index(index)) is not None:
                    yield Node(child)
        except GLib.GError:
            return

    def shown(self) -> Iterator["Node"]:
        """It and all visible nodes inside it, except trees, which may still be filling."""
        yield self
        for part in self.parts():
            if part.is_("showing") and part.role != "tree":
                yield from part.shown()

    def belongs_to(self, process: int) -> bool:
        """Whether it is in the process with that number."""
        try:
            return self._accessible.get_process_id() == process
        except GLib.GError:
            return False


class Listener:
    """Receives the events of the programs on a desktop. A process can listen to one desktop."""

    def __init__(self, environment: dict[str, str]):
        for name in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS"):
            os.environ[name] = environment[name]
        desktop = Atspi.get_desktop(0)
        desktop.set_cache_mask(Atspi.Cache.NONE)
        self._desktop = Node(desktop)
        self._heard: list[tuple[str, str]] = []
        self._ear = Atspi.EventListener.new(self._hear)

    def program(self, process: int) -> Node | None:
        """The program with that process number; None until it is accessible."""
        return next((each for each in self._desktop.parts() if each.belongs_to(process)), None)

    def listen(self) -> None:
        """Starts to receive events. Do not read the tree before the first event."""
        # An event that arrives during a request to the program can block Atspi.
        self._ear.register("object:property-change:accessible-name")

    def heard(self) -> list[tuple[str, str]]:
        """Role and name of each control that has changed its name so far."""
        while GLib.MainContext.default().iteration(False):
            pass
        return self._heard

    def _hear(self, event: Atspi.Event) -> None:
        try:
            self._heard.append((event.source.get_role_name(), event.source.get_name()))
        except GLib.GError:
            pass  # the control is removed already
