"""Formats the outcomes of trials."""

from mutation.draw import Fault

ALLOWED = 0.04  # the largest share of survivors among the faults with an effect
COLUMNS = ("drawn", "compiled", "without effect", "excused", "caught", "survived")


class Table:
    """Counts the outcomes by folder."""

    def __init__(self) -> None:
        self._counts: dict[str, dict[str, int]] = {}

    def add(self, fault: Fault, outcome: str) -> None:
        row = self._counts.setdefault(fault.folder, dict.fromkeys(COLUMNS, 0))
        row["drawn"] += 1
        row["compiled"] += outcome != "uncompiled"
        column = "without effect" if outcome == "idle" else outcome
        if column != "uncompiled":
            row[column] += 1

    def total(self) -> dict[str, int]:
        return {column: sum(row[column] for row in self._counts.values()) for column in COLUMNS}

    def __str__(self) -> str:
        width = max((len(folder) for folder in self._counts), default=0)
        width = max(width, len("all"))
        lines = [" " * width + "".join(f"  {column}" for column in COLUMNS) + "  survived of 100"]
        rows = sorted(self._counts.items()) + [("all", self.total())]
        for folder, row in rows:
            cells = "".join(f"  {row[column]:>{len(column)}}" for column in COLUMNS)
            lines.append(f"{folder:<{width}}{cells}  {100 * survival(row):15.1f}")
        return "\n".join(lines)


def survival(row: dict[str, int]) -> float:
    """The share of survivors among the faults with an effect."""
    effective = row["caught"] + row["survived"]
    return row["survived"] / effective if effective else 0.0


def heading(number: int, fault: Fault) -> str:
    return f"== {number}. {fault.file}:{fault.line}, {fault.edit.kind}"


def verdict(outcome: str, by: str, reason: str) -> str:
    """One line about an outcome."""
    if outcome == "caught":
        return f"caught by {by}" + ("; its excuse is wrong" if reason else "")
    return {"survived": "SURVIVED", "idle": "without effect: the same object code",
            "excused": f"excused: {reason}", "uncompiled": "does not compile"}[outcome]
