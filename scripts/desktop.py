"""A private desktop: a display, a window manager, a message bus and a home folder.

    with Desktop() as desktop:
        program = desktop.start("build/release/veldrin")
        desktop.key("ctrl+q")
        assert program.wait() == 0

It shares nothing with the user's desktop. Its processes end with the `with` block, and also if this
process is killed.
"""

import os
import subprocess
import tempfile
import time
from collections.abc import Callable
from pathlib import Path
from typing import Any

TIME_OUT = 10.0  # seconds
POLL = 0.02  # seconds
END_TIME_OUT = 1.0  # seconds between SIGTERM and SIGKILL
QUIET = dict.fromkeys(("stdin", "stdout", "stderr"), subprocess.DEVNULL)

# Programs inherit only these environment variables, because others belong to the user's desktop.
INHERITED = ("PATH", "LOCPATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS")


def until(condition: Callable[[], Any], what: str) -> Any:
    """Waits until the condition returns a true value; returns the value."""
    end = time.monotonic() + TIME_OUT
    while not (result := condition()):
        if time.monotonic() > end:
            raise AssertionError(f"timeout while waiting for {what}")
        time.sleep(POLL)
    return result


class Desktop:
    """A desktop for a `with` block."""

    def __init__(self, width: int = 1024, height: int = 768):
        self._size = f"{width}x{height}x24"
        self._folder = tempfile.TemporaryDirectory(
            prefix="veldrin-desktop-", ignore_cleanup_errors=True)
        self._jobs: list[subprocess.Popen] = []
        self.home = Path(self._folder.name)
        self.environment = {name: os.environ[name] for name in INHERITED if name in os.environ}
        self.environment |= {"HOME": str(self.home), "LC_ALL": "C.UTF-8", "TZ": "PST8PDT"}
        for name in ("CONFIG_HOME", "DATA_HOME", "CACHE_HOME", "RUNTIME_DIR"):
            folder = self.home / f".{name.lower()}"
            folder.mkdir(mode=0o700)
            self.environment["XDG_" + name] = str(folder)

    def __enter__(self) -> "Desktop":
        try:
            # Without -noreset, Xvfb restarts when its last client exits, and rejects new clients
            # meanwhile.
            screen = ("Xvfb", "-noreset", "-displayfd", "{}", "-screen", "0", self._size)
            self.environment["DISPLAY"] = ":" + self._start_and_read(*screen)
            bus = self._start_and_read("dbus-daemon", "--session", "--nofork", "--print-address={}")
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus
            self.start("openbox")
            until(lambda: self._run("xdotool", "get_desktop").returncode == 0, "the window manager")
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_: object) -> None:
        for job in reversed(self._jobs):
            self.end(job)
        self._folder.cleanup()

    def start(self, *command: str, **options: Any) -> subprocess.Popen:
        """Starts a program; the kernel terminates it when this process ends."""
        options = {"env": self.environment, "cwd": self.home, **QUIET} | options
        bound = ("setpriv", "--pdeathsig", "TERM", *command)
        self._jobs.append(subprocess.Popen(bound, **options))
        return self._jobs[-1]

    @staticmethod
    def end(job: subprocess.Popen) -> None:
        """Terminates the program if it is still running."""
        job.terminate()
        try:
            job.wait(END_TIME_OUT)
        except subprocess.TimeoutExpired:
            job.kill()
            job.wait()
        for stream in (job.stdout, job.stderr):
            if stream:
                stream.close()

    def key(self, *keys: str) -> None:
        """Presses keys in sequence, such as "Tab" or "alt+e"."""
        self._xdotool("key", *keys)

    def hold(self, modifier: str, key: str) -> None:
        """Presses the key while holding the modifier, at human speed.

        If a screen reader is running, Qt delays keys by up to 100 ms, but not shortcuts. Without
        the pause, the key Alt would arrive after the shortcut Alt+E and close the menu again.
        """
        self._xdotool("keydown", modifier, "sleep", "0.3", "key", key, "keyup", modifier)

    def type(self, text: str) -> None:
        """Types the text."""
        self._xdotool("type", "--delay", "1", "--", text)

    def click(self, x: int, y: int) -> None:
        """Clicks at a position of the screen."""
        self._xdotool("mousemove", str(x), str(y), "click", "1")

    def window(self, title: str) -> str:
        """Waits for a visible window with that title and returns its id."""
        search = ("xdotool", "search", "--onlyvisible", "--name", f"^{title}$")
        return until(lambda: self._run(*search).stdout.split(), f"a window {title}")[0]

    def _xdotool(self, *arguments: str) -> None:
        done = self._run("xdotool", *arguments)
        assert done.returncode == 0, done.stderr

    def _run(self, *command: str) -> subprocess.CompletedProcess[str]:
        return subprocess.run(command, env=self.environment, capture_output=True, text=True,
                              timeout=TIME_OUT, check=False)

    def _start_and_read(self, *command: str) -> str:
        """Starts a program and returns the line it writes to the file descriptor given by "{}"."""
        reading, writing = os.pipe()
        with os.fdopen(reading) as pipe:
            self.start(*(part.format(writing) for part in command), pass_fds=(writing,))
            os.close(writing)
            line = pipe.readline().strip()
        assert line, f"{command[0]} did not start"
        return line
