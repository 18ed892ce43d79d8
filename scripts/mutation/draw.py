"""Draws faults from the sources of the product."""

import difflib
import hashlib
import random
import subprocess
from collections import Counter
from collections.abc import Iterator
from dataclasses import dataclass, replace
from pathlib import Path

from mutation.edits import KINDS, Edit, edits_of

ROOT = Path(__file__).resolve().parent.parent.parent
FOLDER = ROOT / "build" / "mutate"  # has the copies of the sources and the results
# Draws fewer early returns: nearly every line can have one, and the tests notice most.
WEIGHTS = dict.fromkeys(KINDS, 1.0) | {"return": 0.3}
NO_PRODUCT = ("tests/", "bench/", "fuzz/", "scripts/", "build/")
WITHOUT_INFLUENCE = ("docs/", ".ci/", "scripts/mutat", "scripts/excuses")


@dataclass(frozen=True)
class Fault:
    """An edit that begins on one line of a file. A dropped statement may span several lines."""

    file: str
    line: int  # from 1
    edit: Edit
    before: str  # the line without its indent
    after: str
    order: float  # faults are drawn in ascending order, from 0 to 1

    @property
    def folder(self) -> str:
        return str(Path(self.file).parent)

    def key(self) -> str:
        return f"{self.file}:{self.line} {self.edit.kind} {self.after}"

    def applied(self, text: str) -> str:
        return text[: self.edit.start] + self.edit.new + text[self.edit.end:]

    def diff(self) -> str:
        """The fault as a unified diff."""
        sound = (ROOT / self.file).read_text()
        lines = difflib.unified_diff(sound.splitlines(), self.applied(sound).splitlines(),
                                     f"a/{self.file}", f"b/{self.file}", n=2, lineterm="")
        return "\n".join(lines)


def tracked_files() -> list[str]:
    listed = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, check=True, capture_output=True,
                            text=True).stdout.split("\0")
    return [name for name in listed if name and (ROOT / name).is_file()]


def fingerprint() -> str:
    """A hash of all files that influence the outcome of a trial."""
    digest = hashlib.sha256()
    for name in tracked_files():
        if not name.startswith(WITHOUT_INFLUENCE) and not name.endswith(".md"):
            digest.update(name.encode() + b"\0" + (ROOT / name).read_bytes() + b"\0")
    return digest.hexdigest()


def product_files() -> list[str]:
    return [name for name in tracked_files()
            if name.endswith((".h", ".cpp")) and "/" in name and not name.startswith(NO_PRODUCT)]


def faults_by_line(file: str) -> dict[int, list[Fault]]:
    """All faults of a file by line number, from 1. `order` is 0 for all."""
    text = (ROOT / file).read_text()
    lines = text.split("\n")
    found: dict[int, list[Fault]] = {}
    for edit in edits_of(text):
        line = text.count("\n", 0, edit.start)
        begin = edit.start - (text.rfind("\n", 0, edit.start) + 1)
        ending = text[edit.end:].split("\n", 1)[0]
        after = (lines[line][:begin] + edit.new + ending).split("\n", 1)[0].strip()
        fault = Fault(file, line + 1, edit, lines[line].strip(), after, 0.0)
        found.setdefault(line + 1, []).append(fault)
    return found


def draw(seed: str, folder: str = "") -> list[Fault]:
    """Draws one fault for each line that can have one. The seed decides the order.

    The order of a fault depends only on the seed, the file, the text of the line and the number of
    equal lines above it. So a change elsewhere hardly changes the draw. Chooses a kind by weight,
    then one of its edits.
    """
    drawn = []
    for file in product_files():
        if folder and not file.startswith(folder.rstrip("/") + "/"):
            continue
        seen: Counter[str] = Counter()
        for _, faults in sorted(faults_by_line(file).items()):
            before = faults[0].before
            chance = random.Random(f"{seed}:{file}:{before}:{seen[before]}")
            seen[before] += 1
            order = chance.random()
            kinds = sorted({fault.edit.kind for fault in faults})
            kind, = chance.choices(kinds, [WEIGHTS[kind] for kind in kinds])
            chosen = chance.choice([fault for fault in faults if fault.edit.kind == kind])
            drawn.append(replace(chosen, order=order))
    return sorted(drawn, key=lambda fault: (fault.order, fault.file, fault.line))


def all_faults() -> Iterator[Fault]:
    for file in product_files():
        for faults in faults_by_line(file).values():
            yield from faults
