"""Puts small faults into copies of the sources, one at a time, and prints which test notices each.

The faults are drawn by a seed from the lines of the product. A fault that no test notices survives.
"""

import argparse
import fcntl
import json
import os
import signal
import sys
import threading
import time
from dataclasses import dataclass

from mutation.draw import FOLDER, ROOT, Fault, all_faults, draw, fingerprint
from mutation.edits import KINDS
from mutation.excuses import excuse_for, read_excuses
from mutation.processes import Runner
from mutation.report import ALLOWED, Table, heading, survival, verdict
from mutation.tokens import spelling
from mutation.tree import Tree, TreeFault


def arguments() -> argparse.Namespace:
    parser = argparse.ArgumentParser(prog="scripts/mutate", description=__doc__.split("\n")[0])
    parser.add_argument("--sample", type=int, default=100, metavar="N",
                        help="try N faults that compile (default: %(default)s)")
    parser.add_argument("--seed", default="1", metavar="S", help="the seed of the draw")
    parser.add_argument("--folder", default="", help="draw only from this folder")
    parser.add_argument("--only", type=int, metavar="K", help="try only fault number K")
    parser.add_argument("--list", action="store_true", help="print the faults and try none")
    parser.add_argument("--check", action="store_true", help="only check the draw and the excuses")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), metavar="N",
                        help="try N faults at once")
    return parser.parse_args()


def check(seed: str) -> list[str]:
    """Checks the draw and the excuses; returns the complaints."""
    drawn, possible = draw(seed), list(all_faults())
    complaints = []
    if drawn != draw(seed):
        complaints.append("the same seed draws different faults")
    for kind in KINDS:
        if all(fault.edit.kind != kind for fault in drawn):
            complaints.append(f"no edit of the kind {kind} is drawn")
    texts: dict[str, str] = {}
    for fault in drawn:
        text = texts.setdefault(fault.file, (ROOT / fault.file).read_text())
        if spelling(text[fault.edit.start: fault.edit.end]) == spelling(fault.edit.new):
            complaints.append(f"this edit changes nothing: {fault.key()}")
    for excuse in read_excuses():
        files = {fault.file for fault in possible if excuse.fits(fault)}
        if len(files) != 1:
            complaints.append(f'an excuse fits {len(files)} files, not one: "{excuse.before}"')
    return complaints


@dataclass
class Result:
    """The outcome of a trial."""

    outcome: str
    by: str
    seconds: float


class Log:
    """Keeps the results of a seed on disk, so that an interrupted run can resume."""

    def __init__(self, seed: str, mark: str):
        self._path = FOLDER / f"log-{seed}.jsonl"
        self._mark = mark
        self.results: dict[str, Result] = {}
        if not self._path.exists():
            return
        for line in self._path.read_text().splitlines():
            try:
                entry = json.loads(line)
            except ValueError:
                continue  # A killed run left an incomplete line.
            if entry["sources"] == mark:
                self.results[entry["fault"]] = Result(entry["outcome"], entry["by"],
                                                      entry["seconds"])

    def add(self, fault: Fault, result: Result) -> None:
        self.results[fault.key()] = result
        entry = {"sources": self._mark, "fault": fault.key(), **vars(result)}
        with open(self._path, "a") as file:
            file.write(json.dumps(entry) + "\n")


class Trials:
    """Hands out the faults of a draw in order until `wanted` have compiled; counts the results."""

    def __init__(self, faults: list[tuple[int, Fault]], wanted: int, log: Log):
        self._todo = iter(faults)
        self._wanted = wanted
        self._log = log
        self._changed = threading.Condition()
        self._compiled = 0
        self._running = 0
        self.excuses = read_excuses()
        self.table = Table()
        self.survivors: list[tuple[int, Fault]] = []
        self.failures: list[str] = []

    def next(self) -> tuple[int, Fault] | None:
        """Returns the next fault, or None. Waits while the running trials may be enough."""
        with self._changed:
            while not self.failures and self._compiled < self._wanted:
                if self._compiled + self._running >= self._wanted:
                    self._changed.wait()
                    continue
                number, fault = next(self._todo, (0, None))
                if fault is None:
                    return None
                if (known := self._log.results.get(fault.key())) is None:
                    self._running += 1
                    return number, fault
                self._count(number, fault, known)
            return None

    def finish(self, number: int, fault: Fault, result: Result) -> None:
        with self._changed:
            self._running -= 1
            self._log.add(fault, result)
            self._count(number, fault, result)
            self._changed.notify_all()

    def fail(self, failure: str) -> None:
        with self._changed:
            self.failures.append(failure)
            self._changed.notify_all()

    def _count(self, number: int, fault: Fault, result: Result) -> None:
        excuse = excuse_for(fault, self.excuses)
        outcome = "excused" if excuse and result.outcome == "survived" else result.outcome
        self._compiled += outcome != "uncompiled"
        self.table.add(fault, outcome)
        if outcome == "survived":
            self.survivors.append((number, fault))
        sentence = verdict(outcome, result.by, excuse.reason if excuse else "")
        print(f"{heading(number, fault)}, {result.seconds:.0f} s: {sentence}\n{fault.diff()}",
              flush=True)


def work(tree: Tree, mark: str, trials: Trials) -> None:
    """Tries faults in one copy of the sources."""
    try:
        tree.prepare(mark)
        while (drawn := trials.next()) is not None:
            begin = time.monotonic()
            outcome, by = tree.trial(drawn[1])
            trials.finish(*drawn, Result(outcome, by, round(time.monotonic() - begin, 1)))
    except KeyboardInterrupt:
        pass  # The main thread reports the interruption.
    except (TreeFault, OSError) as failure:
        trials.fail(str(failure))


def run(trials: Trials, jobs: int, mark: str) -> None:
    runner = Runner()
    for number in (signal.SIGINT, signal.SIGTERM):
        signal.signal(number, signal.default_int_handler)
    threads = [threading.Thread(target=work, args=(Tree(number, runner, 1), mark, trials))
               for number in range(jobs)]
    try:
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
    except KeyboardInterrupt:
        trials.fail("interrupted; the same command resumes the run")
        runner.stop()
        for thread in threads:
            thread.join()


def main() -> int:
    options = arguments()
    if options.check:
        complaints = check(options.seed)
        for complaint in complaints:
            print(f"mutate: {complaint}", file=sys.stderr)
        return 1 if complaints else 0
    faults = list(enumerate(draw(options.seed, options.folder), 1))
    if options.only:
        faults = faults[options.only - 1: options.only]
    if options.list:
        for number, fault in faults[: options.sample]:
            print(f"{heading(number, fault)}\n{fault.diff()}")
        return 0
    FOLDER.mkdir(parents=True, exist_ok=True)
    with open(FOLDER / "lock", "w") as lock:
        try:
            fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            sys.exit("mutate: another run uses build/mutate")
        return try_all(options, faults)


def try_all(options: argparse.Namespace, faults: list[tuple[int, Fault]]) -> int:
    """Tries the faults and reports; returns the exit status."""
    mark = fingerprint()
    log = Log(options.seed, mark)
    if options.only:
        log.results.clear()
    trials = Trials(faults, options.sample, log)
    run(trials, max(1, min(options.jobs, options.sample, len(faults))), mark)
    print(f"\n{trials.table}")
    for number, fault in trials.survivors:
        print(f"{heading(number, fault)}: SURVIVED\n{fault.diff()}")
    if trials.failures:
        sys.exit(f"mutate: {trials.failures[0]}")
    return 1 if survival(trials.table.total()) > ALLOWED else 0


if __name__ == "__main__":
    sys.exit(main())
