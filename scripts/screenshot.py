"""Takes a picture of the window with its frame, on a desktop of its own."""

import argparse
import subprocess
from pathlib import Path

from desktop import Desktop, until

# A desktop's settings that Qt reads by itself, with no program of that desktop at hand.
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
    parser.add_argument("--dark", action="store_true", help="on a dark desktop")
    parser.add_argument("--scale", type=int, default=1, help="screen pixels to one of the form")
    parser.add_argument("--points", type=int, default=0, help="the size of the desktop's font")
    parser.add_argument("file", nargs="?", type=Path, default="docs/screenshot.png")
    parser.add_argument("program", nargs="?", type=Path, default="build/release/veldrin")
    return parser.parse_args()


def dress(desktop: Desktop, wanted: argparse.Namespace) -> None:
    """Gives the desktop the looks that are wanted."""
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
        raise SystemExit(f"there is no {wanted.program}; build it first, with ./run or ./test")
    with Desktop(1024 * wanted.scale, 768 * wanted.scale) as desktop:
        dress(desktop, wanted)
        desktop.start(str(wanted.program.absolute()))
        picture = ["import", "-silent", "-window", desktop.window("Veldrin")]

        def drawn() -> bool:
            """The picture is whole once the window holds more than its background."""
            take = [*picture, "png:-"]
            shown = subprocess.run(take, env=desktop.environment, capture_output=True)
            count = ["identify", "-format", "%k", "-"]
            colours = subprocess.run(count, input=shown.stdout, capture_output=True)
            return int(colours.stdout or 0) > 50

        until(drawn, "a picture in the window")
        subprocess.run([*picture, "-frame", wanted.file], env=desktop.environment, check=True)
    print(f"== The picture is in {wanted.file}")


if __name__ == "__main__":
    main()
