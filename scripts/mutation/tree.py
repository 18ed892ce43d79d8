"""A copy of the sources with its own build, for trying faults."""

import json
import os
import shlex
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

from mutation.draw import FOLDER, NO_PRODUCT, ROOT, Fault, tracked_files
from mutation.processes import LIMITS, Runner
from mutation.suite import Step, failure_in, steps_of

OBJECT = 3.0  # seconds, about, to compile one object file
COMPILING = 900.0  # time limit of a build with a fault, in seconds


class TreeFault(Exception):
    """The sources cannot be built even without a fault, or fail a test."""


class Tree:
    """A copy in build/mutate/NUMBER, with a second build that never has a fault."""

    def __init__(self, number: int, runner: Runner, jobs: int):
        self.folder = FOLDER / str(number)
        self.source = self.folder / "source"
        self.build = self.folder / "build"
        self._sound = self.folder / "sound"
        self._log = self.folder / "output"
        self._runner = runner
        self._jobs = str(jobs)
        # The copies share the compiler cache.
        self._environment = os.environ | {"CCACHE_BASEDIR": str(self.folder),
                                          "CCACHE_NOHASHDIR": "1"}
        self._object_code: dict[str, bytes] = {}
        self.steps: list[Step] = []

    def prepare(self, mark: str) -> None:
        """Builds the sources and runs the tests. `mark` is the fingerprint of the sources."""
        self._copy_sources()
        self._configure()
        if not self._makes(["all"], None):
            raise TreeFault(f"the sources cannot be built; see {self._log}")
        self._environment["CCACHE_DISABLE"] = "1"
        self._learn()
        self._try_without_fault(mark)
        copy_changed(self.build, self._sound)

    def _copy_sources(self) -> None:
        wanted = set(tracked_files())
        for name in wanted:
            sound, copy = (ROOT / name).read_bytes(), self.source / name
            if not copy.exists() or copy.read_bytes() != sound:
                copy.parent.mkdir(parents=True, exist_ok=True)
                copy.write_bytes(sound)
                shutil.copymode(ROOT / name, copy)
        for path in self.source.rglob("*"):
            if path.is_file() and str(path.relative_to(self.source)) not in wanted:
                path.unlink()

    def _configure(self) -> None:
        options = ["-DVELDRIN_TESTS=ON", "-DCMAKE_BUILD_TYPE=Debug",
                   "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -w", "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON",
                   # A unity build compiles a header once per target, not once per source.
                   "-DCMAKE_UNITY_BUILD=ON", "-DCMAKE_UNITY_BUILD_BATCH_SIZE=0",
                   # The build runs no test program, which may hang because of a fault.
                   "-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST"]
        if shutil.which("ccache"):
            options.append("-DCMAKE_CXX_COMPILER_LAUNCHER=ccache")
        command = ["cmake", "-S", str(self.source), "-B", str(self.build), "-G", "Ninja", *options]
        if self._run(command, None) != 0:
            raise TreeFault(f"the build cannot be configured; see {self._log}")

    def _makes(self, targets: list[str], limit: float | None) -> bool:
        command = ["ninja", "-C", str(self.build), "-j", self._jobs, *targets]
        return self._run(command, limit) == 0

    def _run(self, command: list[str], limit: float | None) -> int | None:
        return self._runner.run(command, self.folder, self._environment, self._log, limit)

    def _output_of(self, *command: str) -> str:
        return subprocess.run(command, cwd=self.build, env=self._environment, check=True,
                              capture_output=True, text=True).stdout

    def _learn(self) -> None:
        """Learns the tests, the inputs of their targets, and what is built from each file."""
        outputs = {line.rsplit(":", 1)[0]
                   for line in self._output_of("ninja", "-t", "targets", "all").splitlines()}
        listed = json.loads(self._output_of("ctest", "--show-only=json-v1"))
        self.steps = steps_of(listed, self.build, outputs)
        self._inputs = {target: {self._name(line.strip()) for line in self._output_of(
                            "ninja", "-t", "inputs", target).splitlines()}
                        for step in self.steps for target in step.targets}
        self._dependents: dict[str, set[str]] = {}
        made = ""
        for line in self._output_of("ninja", "-t", "deps").splitlines():
            if line.startswith(" "):
                self._dependents.setdefault(self._name(line.strip()), set()).add(made)
            else:
                made = line.split(": ", 1)[0]
        self._commands = {}
        for entry in json.loads((self.build / "compile_commands.json").read_text()):
            command = shlex.split(entry["command"])
            self._commands[command[command.index("-o") + 1]] = command

    def _name(self, path: str) -> str:
        """The path relative to the sources if it is inside them, else as it is."""
        full = os.path.normpath(self.build / path)
        is_inside = full.startswith(str(self.source) + "/")
        return os.path.relpath(full, self.source) if is_inside else path

    def _try_without_fault(self, mark: str) -> None:
        """Measures each step. Uses the stored times if they are of the same sources."""
        kept = self.folder / "seconds.json"
        known = json.loads(kept.read_text()) if kept.exists() else {}
        if known.get("mark") != mark:
            known = {"mark": mark}
        for step in self.steps:
            key = " ".join(step.command)
            if key not in known:
                begin = time.monotonic()
                if blamed := self._blamed(step):
                    raise TreeFault(f"{blamed} fails without any fault; see {self._log}")
                known[key] = time.monotonic() - begin
                kept.write_text(json.dumps(known, indent=1))
            step.measured(known[key])
        self.steps.sort(key=Step.order)

    def _blamed(self, step: Step) -> str:
        """Runs the step and returns the failed test, or ""."""
        with tempfile.TemporaryDirectory(prefix="mutate-", ignore_cleanup_errors=True) as scratch:
            environment = os.environ | {"TMPDIR": scratch} | step.environment
            status = self._runner.run([*LIMITS, *step.command], step.folder, environment,
                                      self._log, step.limit)
        output = self._log.read_text(errors="replace")
        if step.passes(status, output):
            return ""
        test = failure_in(output)
        name = f"{step.name} {test}" if test else step.name
        return name if status is not None else f"{name} (time limit)"

    def _steps_for(self, fault: Fault) -> list[Step]:
        """The steps that a fault in that file can affect, cheapest first."""
        changed = self._dependents.get(fault.file, set()) | {fault.file}
        costs = []
        for step in self.steps:
            affected = set().union(*(changed & self._inputs[target] for target in step.targets))
            # A test of compile errors reads the headers itself.
            reads = "-fsyntax-only" in step.command and fault.file.endswith(".h")
            if affected or reads:
                late, seconds = step.order()
                costs.append((late, seconds + OBJECT * len(affected), step))
        return [step for *_, step in sorted(costs, key=lambda cost: cost[:2])]

    def trial(self, fault: Fault) -> tuple[str, str]:
        """Returns "uncompiled", "caught", "idle" or "survived", and the test that noticed."""
        path = self.source / fault.file
        times, sound = path.stat(), path.read_text()
        path.write_text(fault.applied(sound))
        try:
            return self._outcome(fault, sound)
        finally:
            _write(path, sound, times)
            copy_changed(self._sound, self.build)

    def _outcome(self, fault: Fault, sound: str) -> tuple[str, str]:
        has_effect = None
        for step in self._steps_for(fault):
            if step.targets and not self._makes(step.targets, COMPILING):
                return "uncompiled", ""
            if step.is_late and has_effect is None:
                has_effect = self._has_effect(fault, sound)
                if not has_effect:
                    break
            blamed = self._blamed(step)
            if blamed and step.is_unsteady:
                blamed = self._blamed(step)
            if blamed:
                return "caught", blamed
        if has_effect is None:
            has_effect = self._has_effect(fault, sound)
        return ("survived" if has_effect else "idle"), ""

    def _has_effect(self, fault: Fault, sound: str) -> bool:
        """Whether the fault changes the optimised object code of the product."""
        path = self.source / fault.file
        times, faulty = path.stat(), path.read_text()
        try:
            for made in sorted(self._dependents.get(fault.file, set()) & set(self._commands)):
                if made.startswith(NO_PRODUCT):
                    continue
                code = self._compiled(made)
                if made not in self._object_code:
                    path.write_text(sound)
                    self._object_code[made] = self._compiled(made)
                    path.write_text(faulty)
                if code != self._object_code[made]:
                    return True
            return False
        finally:
            _write(path, faulty, times)

    def _compiled(self, made: str) -> bytes:
        target = self.folder / "compared.o"
        command = list(self._commands[made])
        command[command.index("-o") + 1] = str(target)
        target.unlink(missing_ok=True)
        self._runner.run([*command, "-O2", "-g0"], self.build, self._environment, self._log)
        return target.read_bytes() if target.exists() else b""


def _write(path: Path, text: str, times: os.stat_result) -> None:
    """Writes a file and sets its times to those given, so that ninja does not rebuild."""
    path.write_text(text)
    os.utime(path, ns=(times.st_atime_ns, times.st_mtime_ns))


def copy_changed(source: Path, copy: Path) -> None:
    """Makes the copy equal to the source. Files with equal size and time count as equal."""
    copy.mkdir(parents=True, exist_ok=True)
    wanted = {entry.name: entry for entry in os.scandir(source)}
    for entry in os.scandir(copy):
        if entry.name not in wanted:
            if entry.is_dir(follow_symlinks=False):
                shutil.rmtree(entry.path)
            else:
                os.unlink(entry.path)
    for name, entry in wanted.items():
        if entry.is_dir(follow_symlinks=False):
            copy_changed(Path(entry.path), copy / name)
        elif not _is_equal(entry, copy / name):
            shutil.copy2(entry.path, copy / name, follow_symlinks=False)


def _is_equal(entry: os.DirEntry, copy: Path) -> bool:
    try:
        there = copy.lstat()
    except FileNotFoundError:
        return False
    here = entry.stat(follow_symlinks=False)
    return (here.st_size, here.st_mtime_ns) == (there.st_size, there.st_mtime_ns)
