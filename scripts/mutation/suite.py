"""Groups the tests of a build, as ctest lists them, into steps of one process each."""

import os
import re
from dataclasses import dataclass, field
from pathlib import Path

# Labels and folders of expensive tests, cheapest first. All other tests run before them.
LATE = ("companion", "qt", "screen", "slow")
UNSTEADY = "screen"  # The label of tests that a busy machine may fail. If one fails, it runs again.
# The time limit of a step: SPARE seconds plus PATIENCE times its time without a fault.
SPARE = 20.0
PATIENCE = 5


@dataclass
class Step:
    """One process that passes or fails."""

    name: str
    command: list[str]
    folder: Path
    environment: dict[str, str]
    words: set[str]  # its labels, and the folders of its program and its working folder
    limit: float = 600.0  # seconds
    must_say: list[str] = field(default_factory=list)  # success if the output has one of these
    targets: list[str] = field(default_factory=list)  # the built files that it needs
    seconds: float = 0.0  # without a fault

    @property
    def is_unsteady(self) -> bool:
        return UNSTEADY in self.words

    @property
    def is_late(self) -> bool:
        return not self.words.isdisjoint(LATE)

    def order(self) -> tuple[int, float]:
        late = max((LATE.index(word) + 1 for word in self.words if word in LATE), default=0)
        return late, self.seconds

    def measured(self, seconds: float) -> None:
        self.seconds = seconds
        self.limit = SPARE + PATIENCE * seconds

    def passes(self, status: int | None, output: str) -> bool:
        if self.must_say:
            return status is not None and any(re.search(each, output) for each in self.must_say)
        return status == 0


def steps_of(listed: dict, build: Path, outputs: set[str]) -> list[Step]:
    """The steps for the output of `ctest --show-only=json-v1`. `outputs` are the built files."""
    groups: dict[tuple, list[dict]] = {}
    for test in listed["tests"]:
        if "command" not in test or _properties(test).get("DISABLED"):
            continue
        program = test["command"][0]
        is_case = any(word.startswith("--gtest_filter=") for word in test["command"])
        environment = tuple(_properties(test).get("ENVIRONMENT", []))
        key = ((program, environment, "slow" in _words(test, build)) if is_case
               else (test["name"],))
        groups.setdefault(key, []).append(test)
    programs = [key[0] for key in groups]
    steps = [_step(tests, build, outputs, programs.count(key[0]) > 1)
             for key, tests in groups.items()]
    return sorted(steps, key=Step.order)


def _properties(test: dict) -> dict:
    return {each["name"]: each["value"] for each in test.get("properties", [])}


def _words(test: dict, build: Path) -> set[str]:
    properties = _properties(test)
    words = set(properties.get("LABELS", []))
    for path in (test["command"][0], properties.get("WORKING_DIRECTORY", "")):
        if str(build.parent) in path:
            words |= set(Path(path).relative_to(build.parent).parts)
    return words


def _step(tests: list[dict], build: Path, outputs: set[str], is_part: bool) -> Step:
    """The step for these tests: one test, or cases of one GoogleTest program."""
    properties = _properties(tests[0])
    command, name = list(tests[0]["command"]), tests[0]["name"]
    filters = [word.removeprefix("--gtest_filter=") for test in tests for word in test["command"]
               if word.startswith("--gtest_filter=")]
    if filters:
        name = os.path.basename(command[0])
        command = [command[0], "--gtest_fail_fast"]
        if is_part:  # another step has the other cases of the program
            command.append("--gtest_filter=" + ":".join(filters))
    settings = properties.get("ENVIRONMENT", [])
    must_say = properties.get("PASS_REGULAR_EXPRESSION", [])
    step = Step(name, command, Path(properties.get("WORKING_DIRECTORY", str(build))),
                dict(setting.split("=", 1) for setting in settings),
                set.union(*(_words(test, build) for test in tests)),
                must_say=[must_say] if isinstance(must_say, str) else must_say)
    step.targets = sorted(_built(step, build, outputs))
    return step


def _built(step: Step, build: Path, outputs: set[str]) -> set[str]:
    """The built files named in the command and the environment."""
    named = [*step.command, *step.environment.values()]
    relative = {os.path.relpath(word, build) for word in named if word.startswith(str(build) + "/")}
    return relative & outputs


def failure_in(output: str) -> str:
    """The failed test in the output of GoogleTest or unittest, else the last started one, or ""."""
    patterns = (r"^\[  FAILED  \] (\w\S*?)(?:,|\s|$)", r"^(?:FAIL|ERROR): (\w+)",
                r"^\[ RUN      \] (\S+)")
    for pattern in patterns[:2]:
        if found := re.search(pattern, output, re.MULTILINE):
            return found.group(1)
    started = re.findall(patterns[2], output, re.MULTILINE)
    return started[-1] if started else ""
