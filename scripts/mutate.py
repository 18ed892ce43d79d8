"""Puts small faults into copies of the sources and tells which of them the tests do not notice.

The faults stand in scripts/mutations, which says how. One that the tests do not notice survives; one
that stops them for good, or that does not compile, is caught as well.
"""

import argparse
import os
import queue
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
LIST = ROOT / "scripts" / "mutations"
ALLOWED = 0.05  # of the faults may survive without an excuse
PATIENCE = 5  # times what the tests take without a fault

UNIT_TARGETS = ["veldrin-tests"]
WINDOW_TARGETS = ["veldrin-qt-tests", "veldrin"]


@dataclass
class Mutation:
    """A fault: in `file`, `old` stands where `new` is put in its place."""

    number: int
    file: str
    what: str
    old: str = ""
    new: str = ""
    excuse: str = ""

    def __str__(self) -> str:
        return f"{self.number}. {self.file}: {self.what}"

    def is_stale(self) -> bool:
        """Whether the text that it replaces does not stand in its file, or not just once."""
        path = ROOT / self.file
        return not path.exists() or path.read_text().count(self.old) != 1


def read_list() -> list[Mutation]:
    """All faults. A line of a text begins behind its mark and a blank."""
    mutations = []
    for paragraph in LIST.read_text().split("\n\n"):
        lines = [line for line in paragraph.strip("\n").split("\n") if not line.startswith("#")]
        if not lines or not lines[0]:
            continue
        file, what = lines[0].split(": ", 1)
        texts: dict[str, list[str]] = {"-": [], "+": [], "=": []}
        for line in lines[1:]:
            texts[line[0]].append(line[2:])
        old, new, excuse = ("\n".join(texts[mark]) for mark in "-+=")
        mutations.append(Mutation(len(mutations) + 1, file, what, old, new, excuse))
    return mutations


def arguments() -> argparse.Namespace:
    parser = argparse.ArgumentParser(prog="scripts/mutate", description=__doc__.split("\n")[0])
    parser.add_argument("--check", action="store_true", help="only whether every fault still fits")
    parser.add_argument("--only", metavar="FROM-TO", help="those numbers alone")
    parser.add_argument("--folder", help="those of a folder alone")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), help="so many at once")
    return parser.parse_args()


def wanted(mutations: list[Mutation], options: argparse.Namespace) -> list[Mutation]:
    first, last = 1, len(mutations)
    if options.only:
        ends = options.only.split("-")
        first, last = int(ends[0]), int(ends[-1])
    folder = options.folder.rstrip("/") + "/" if options.folder else ""
    return [each for each in mutations
            if first <= each.number <= last and each.file.startswith(folder)]


class Tree:
    """A copy of the sources with a build of its own."""

    def __init__(self, folder: Path):
        self.folder = folder
        self.build = folder / "build" / "mutated"
        # What one copy has compiled need not be compiled for the next, where there is a cache.
        self.environment = os.environ | {"CCACHE_BASEDIR": str(folder), "CCACHE_NOHASHDIR": "1"}
        names = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, check=True,
                               capture_output=True, text=True).stdout.split("\0")
        for name in filter(None, names):
            (folder / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(ROOT / name, folder / name)
        self.run(["cmake", "-S", folder, "-B", self.build, "-G", "Ninja", "-DVELDRIN_TESTS=ON",
                  "-DCMAKE_BUILD_TYPE=None", "-DCMAKE_CXX_FLAGS=-O0 -w"], None)
        if not self.make(UNIT_TARGETS + WINDOW_TARGETS):
            sys.exit("mutate: the sources cannot be built")
        self.patience: dict[str, float] = {}
        for name, steps in (("unit", self.unit_steps()), ("window", self.window_steps())):
            start = time.monotonic()
            if not self.passes(steps, None):
                sys.exit(f"mutate: the {name} tests fail without any fault")
            self.patience[name] = PATIENCE * (time.monotonic() - start) + 30

    def run(self, command: list, limit: float | None) -> bool:
        """Whether the command succeeds within so many seconds. All that it started ends with it."""
        with subprocess.Popen(command, cwd=self.folder, env=self.environment,
                              stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, start_new_session=True) as process:
            try:
                return process.wait(limit) == 0
            except subprocess.TimeoutExpired:
                return False
            finally:
                try:
                    os.killpg(process.pid, signal.SIGKILL)
                except ProcessLookupError:
                    pass

    def make(self, targets: list[str]) -> bool:
        return self.run(["cmake", "--build", self.build, "--parallel", "1", "--target", *targets],
                        None)

    def unit_steps(self) -> list[list]:
        # The one test that takes as long as all others comes behind them.
        slow = "*MemoryThatRunsOut*"
        tests = [self.build / "tests" / "veldrin-tests", "--gtest_fail_fast"]
        return [[*tests, f"--gtest_filter=-{slow}"], [*tests, f"--gtest_filter={slow}"]]

    def window_steps(self) -> list[list]:
        return [[self.build / "tests" / "qt" / "veldrin-qt-tests", "--gtest_fail_fast"],
                ["ctest", "--test-dir", self.build, "--stop-on-failure", "-R",
                 "^(Screen|CalendarReaders|MustNotCompile)"]]

    def passes(self, steps: list[list], limit: float | None) -> bool:
        return all(self.run(step, limit) for step in steps)

    def survives(self, mutation: Mutation) -> bool:
        """Whether all tests pass with the fault in the sources."""
        path = self.folder / mutation.file
        sound = path.read_text()
        path.write_text(sound.replace(mutation.old, mutation.new))
        try:
            return self.unnoticed(mutation.file.startswith("toolkits/qt/"))
        finally:
            path.write_text(sound)

    def unnoticed(self, in_window: bool) -> bool:
        if not in_window:
            built = self.make(UNIT_TARGETS)
            if not built or not self.passes(self.unit_steps(), self.patience["unit"]):
                return False
        return self.make(WINDOW_TARGETS) and self.passes(self.window_steps(),
                                                        self.patience["window"])


def survivors_of(mutations: list[Mutation], jobs: int) -> list[Mutation]:
    """Tries the faults, so many at once, and gives those that no test notices."""
    todo: queue.SimpleQueue[Mutation] = queue.SimpleQueue()
    for mutation in mutations:
        todo.put(mutation)
    survivors: list[Mutation] = []
    failures: list[str] = []
    start = time.monotonic()

    def work(folder: Path) -> None:
        try:
            tree = Tree(folder)
            while not failures:
                mutation = todo.get_nowait()
                survived = tree.survives(mutation)
                if survived:
                    survivors.append(mutation)
                seconds = time.monotonic() - start
                print(f"{seconds:6.0f} s  {'SURVIVED' if survived else 'caught  '}  {mutation}",
                      flush=True)
        except queue.Empty:
            pass
        except SystemExit as failure:
            failures.append(str(failure))

    with tempfile.TemporaryDirectory(prefix="veldrin-mutate-") as scratch:
        threads = [threading.Thread(target=work, args=(Path(scratch) / str(job),))
                   for job in range(jobs)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
    if failures:
        sys.exit(failures[0])
    return sorted(survivors, key=lambda each: each.number)


def main() -> int:
    options = arguments()
    mutations = read_list()
    stale = [each for each in mutations if each.is_stale()]
    for each in stale:
        print(f"mutate: this fault no longer fits: {each}", file=sys.stderr)
    if stale or options.check:
        return 1 if stale else 0
    tried = wanted(mutations, options)
    survivors = survivors_of(tried, max(1, options.jobs))
    for each in survivors:
        print(f"Survived: {each}{' (' + each.excuse + ')' if each.excuse else ''}")
    for each in tried:
        if each.excuse and each not in survivors:
            print(f"Excused, but caught: {each}")
    unexcused = sum(not each.excuse for each in survivors)
    print(f"{len(tried)} faults, {len(survivors)} survived, {unexcused} of them without an excuse")
    return 1 if unexcused > ALLOWED * len(tried) else 0


if __name__ == "__main__":
    sys.exit(main())
