"""Takes a screenshot of the window with its frame, on a private desktop."""

import argparse
import subprocess
from pathlib import Path

from desktop import Desktop, until

# With these variables, Qt reads fonts and colours from the file kdeglobals. No KDE program runs.
SETTINGS = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": "5"}
DARK = """
[Colors:Window]
BackgroundNormal=42,46,50
ForegroundNormal=252,252,252
[Colors:View]
BackgroundNormal=27,30,32
ForegroundNormal=252,252,252
[Colors:Button]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
[Colors:Selection]
BackgroundNormal=61,174,233
ForegroundNormal=252,252,252
"""


def options() -> argparse.Namespace:
    parser = argparse.ArgumentParser(prog="scripts/screenshot", description=__doc__)
    parser.add_argument("--dark", action="store_true", help="use a dark desktop")
    parser.add_argument("--scale", type=int, default=1, help="screen pixels per form pixel")
    parser.add_argument("--points", type=int, default=0, help="font size of the desktop in points")
    parser.add_argument("file", nargs="?", type=Path, default="docs/screenshot.png")
    parser.add_argument("program", nargs="?", type=Path, default="build/release/veldrin")
    return parser.parse_args()


def apply_appearance(desktop: Desktop, wanted: argparse.Namespace) -> None:
    """Applies the appearance options to the desktop."""
    desktop.environment["QT_SCALE_FACTOR"] = str(wanted.scale)
    if not wanted.dark and not wanted.points:
        return
    font = f"[General]\nfont=DejaVu Sans,{wanted.points},-1,5,50,0,0,0,0,0\n"
    looks = (font if wanted.points else "") + (DARK if wanted.dark else "")
    Path(desktop.environment["XDG_CONFIG_HOME"], "kdeglobals").write_text(looks)
    desktop.environment |= SETTINGS


def main() -> None:
    wanted = options()
    if not wanted.program.exists():
        raise SystemExit(f"{wanted.program} is missing; build it first with ./run or ./test")
    with Desktop(1024 * wanted.scale, 768 * wanted.scale) as desktop:
        apply_appearance(desktop, wanted)
        desktop.start(str(wanted.program.absolute()))
        picture = ["import", "-silent", "-window", desktop.window("Veldrin")]

        def drawn() -> bool:
            """Whether the window shows more than its background."""
            take = [*picture, "png:-"]
            shown = subprocess.run(take, env=desktop.environment, capture_output=True)
            count = ["identify", "-format", "%k", "-"]
            colours = subprocess.run(count, input=shown.stdout, capture_output=True)
            return int(colours.stdout or 0) > 50

        until(drawn, "the content of the window")
        subprocess.run([*picture, "-frame", wanted.file], env=desktop.environment, check=True)
    print(f"== Wrote {wanted.file}")


if __name__ == "__main__":
    main()
