"""Reads scripts/excuses, which lists faults without effect and describes its format."""

from dataclasses import dataclass
from pathlib import PurePath

from mutation.draw import ROOT, Fault
from mutation.edits import KINDS

FILE = ROOT / "scripts" / "excuses"


@dataclass(frozen=True)
class Excuse:
    """Excuses all edits of a kind, or the edit that turns the line into `after`."""

    before: str
    kind: str  # or "" if `after` selects the edit
    after: str
    reason: str
    name: str  # of its file, without folders; or "" for any file

    def fits(self, fault: Fault) -> bool:
        if fault.before != self.before or self.name not in ("", PurePath(fault.file).name):
            return False
        return fault.edit.kind == self.kind if self.kind else fault.after == self.after


def read_excuses() -> list[Excuse]:
    """All excuses. Raises `ValueError` if a paragraph is malformed."""
    found = []
    for paragraph in FILE.read_text().split("\n\n"):
        lines = [line for line in paragraph.split("\n") if line and not line.startswith("#")]
        if lines:
            found.append(_excuse(lines))
    return found


def _excuse(lines: list[str]) -> Excuse:
    texts = {mark: " ".join(line[2:] for line in lines if line[0] == mark) for mark in "-+~=@"}
    marks = "".join(line[0] for line in lines).rstrip("=")
    kind = texts["~"]
    if marks not in ("-+", "-~", "@-+", "@-~") or not texts["="] or kind not in ("", *KINDS):
        raise ValueError("scripts/excuses: this paragraph is malformed:\n" + "\n".join(lines))
    return Excuse(texts["-"], kind, texts["+"], texts["="], texts["@"])


def excuse_for(fault: Fault, excuses: list[Excuse]) -> Excuse | None:
    return next((excuse for excuse in excuses if excuse.fits(fault)), None)
