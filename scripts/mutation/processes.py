"""Runs programs that a fault may make hang."""

import os
import signal
import subprocess
import threading
from pathlib import Path

# Limits in bytes: a fault may allocate all memory or fill the disk.
LIMITS = ("prlimit", f"--as={8 << 30}", f"--fsize={1 << 30}", "--core=0")
GRACE = 2.0  # seconds between SIGTERM and SIGKILL


class Runner:
    """Starts each program in its own process group, and ends the group with the program."""

    def __init__(self) -> None:
        self._lock = threading.Lock()
        self._running: set[subprocess.Popen] = set()
        self.stopped = False

    def run(self, command: list[str], folder: Path, environment: dict[str, str], log: Path,
            seconds: float | None = None) -> int | None:
        """Returns the exit status, or None after the time limit. Writes all output to the log."""
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
        """Ends all programs. From now on, run() raises `KeyboardInterrupt`."""
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
    """Sends SIGTERM, so that ninja ends its compilers, then SIGKILL."""
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
