"""A desktop of its own for one program: a screen, a window manager, a message bus and a home.

    with Desktop() as desktop:
        program = desktop.start("build/release/veldrin")
        desktop.key("ctrl+q")
        assert program.wait() == 0

Nothing is shared with the desktop of whoever runs it, and everything ends with it, also when this
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
PATIENCE = 1.0  # seconds, with what has been told to end and may tidy up first
QUIET = dict.fromkeys(("stdin", "stdout", "stderr"), subprocess.DEVNULL)

# What a program is told of the machine. Whatever else the environment says is of another desktop.
PASSED_ON = ("PATH", "LOCPATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS")


def until(condition: Callable[[], Any], what: str) -> Any:
    """Waits until the condition gives something true and returns that."""
    end = time.monotonic() + TIME_OUT
    while not (result := condition()):
        if time.monotonic() > end:
            raise AssertionError(f"waited in vain for {what}")
        time.sleep(POLL)
    return result


class Desktop:
    """A desktop that lasts as long as a `with` block."""

    def __init__(self, width: int = 1024, height: int = 768):
        self._size = f"{width}x{height}x24"
        self._folder = tempfile.TemporaryDirectory(
            prefix="veldrin-desktop-", ignore_cleanup_errors=True)
        self._jobs: list[subprocess.Popen] = []
        self.home = Path(self._folder.name)
        self.environment = {name: os.environ[name] for name in PASSED_ON if name in os.environ}
        self.environment |= {"HOME": str(self.home), "LC_ALL": "C.UTF-8", "TZ": "PST8PDT"}
        for name in ("CONFIG_HOME", "DATA_HOME", "CACHE_HOME", "RUNTIME_DIR"):
            folder = self.home / f".{name.lower()}"
            folder.mkdir(mode=0o700)
            self.environment["XDG_" + name] = str(folder)

    def __enter__(self) -> "Desktop":
        try:
            # Without -noreset it starts anew whenever its last client has gone, and meanwhile
            # refuses whoever comes.
            screen = ("Xvfb", "-noreset", "-displayfd", "{}", "-screen", "0", self._size)
            self.environment["DISPLAY"] = ":" + self._told(*screen)
            bus = self._told("dbus-daemon", "--session", "--nofork", "--print-address={}")
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
        """Starts a program that ends with this process at the latest."""
        options = {"env": self.environment, "cwd": self.home, **QUIET} | options
        held = ("setpriv", "--pdeathsig", "TERM", *command)
        self._jobs.append(subprocess.Popen(held, **options))
        return self._jobs[-1]

    @staticmethod
    def end(job: subprocess.Popen) -> None:
        """Ends the program if it has not ended by itself."""
        job.terminate()
        try:
            job.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            job.kill()
            job.wait()
        for stream in (job.stdout, job.stderr):
            if stream:
                stream.close()

    def key(self, *keys: str) -> None:
        """Presses the keys one after the other, such as "Tab" or "alt+e"."""
        self._xdotool("key", *keys)

    def hold(self, modifier: str, key: str) -> None:
        """Presses the key while the modifier is held, at the pace of a hand.

        With a screen reader about, Qt hands a key on only after asking around, for 100 ms at most,
        but obeys a shortcut at once. An Alt that comes after its Alt+E closes the menu again.
        """
        self._xdotool("keydown", modifier, "sleep", "0.3", "key", key, "keyup", modifier)

    def type(self, text: str) -> None:
        """Types the text with its keys."""
        self._xdotool("type", "--delay", "1", "--", text)

    def click(self, x: int, y: int) -> None:
        """Presses the mouse at that place of the screen."""
        self._xdotool("mousemove", str(x), str(y), "click", "1")

    def window(self, title: str) -> str:
        """The number of the visible window of that title, once there is one."""
        search = ("xdotool", "search", "--onlyvisible", "--name", f"^{title}$")
        return until(lambda: self._run(*search).stdout.split(), f"a window {title}")[0]

    def _xdotool(self, *arguments: str) -> None:
        done = self._run("xdotool", *arguments)
        assert done.returncode == 0, done.stderr

    def _run(self, *command: str) -> subprocess.CompletedProcess[str]:
        return subprocess.run(command, env=self.environment, capture_output=True, text=True,
                              timeout=TIME_OUT, check=False)

    def _told(self, *command: str) -> str:
        """Starts a program that writes a line into the file descriptor at the place of "{}"."""
        reading, writing = os.pipe()
        with os.fdopen(reading) as pipe:
            self.start(*(part.format(writing) for part in command), pass_fds=(writing,))
            os.close(writing)
            line = pipe.readline().strip()
        assert line, f"{command[0]} did not start"
        return line
