"""Runs programs that a fault may keep from ending."""

import os
import signal
import subprocess
import threading
from pathlib import Path

# Against a fault that takes all memory or fills the disk: bytes.
LIMITS = ("prlimit", f"--as={8 << 30}", f"--fsize={1 << 30}", "--core=0")
GRACE = 2.0  # seconds between asking and killing


class Runner:
    """Starts programs in groups of their own and ends each group with its program."""

    def __init__(self) -> None:
        self._lock = threading.Lock()
        self._running: set[subprocess.Popen] = set()
        self.stopped = False

    def run(self, command: list[str], folder: Path, environment: dict[str, str], log: Path,
            seconds: float | None = None) -> int | None:
        """The exit status, or None if the time is over. The log takes all output."""
        with open(log, "wb") as output:
            with self._lock:
                if self.stopped:
                    raise KeyboardInterrupt
                process = subprocess.Popen(command, cwd=folder, env=environment,
                                           stdin=subprocess.DEVNULL, stdout=output,
                                           stderr=subprocess.STDOUT, start_new_session=True)
                self._running.add(process)
            try:
                return process.wait(seconds)
            except subprocess.TimeoutExpired:
                return None
            finally:
                self._end(process)

    def stop(self) -> None:
        """Ends everything; whatever runs or is started raises `KeyboardInterrupt`."""
        with self._lock:
            self.stopped = True
            for process in self._running:
                _end_group(process)

    def _end(self, process: subprocess.Popen) -> None:
        _end_group(process)
        with self._lock:
            self._running.discard(process)
        if self.stopped:
            raise KeyboardInterrupt


def _end_group(process: subprocess.Popen) -> None:
    """Asks the group to end, since ninja then ends its compilers; kills what does not."""
    _signal(process, signal.SIGTERM)
    try:
        process.wait(GRACE)
    except subprocess.TimeoutExpired:
        pass
    _signal(process, signal.SIGKILL)
    process.wait()


def _signal(process: subprocess.Popen, number: signal.Signals) -> None:
    try:
        os.killpg(process.pid, number)
    except ProcessLookupError:
        pass
