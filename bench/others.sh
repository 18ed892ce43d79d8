#!/usr/bin/env bash
# others.sh BUILD
#
# Compares veldrin-calendar with other programs that calculate the sun times of a year: hdate,
# remind, and a Node script with the library suncalc. Each writes its own format. BUILD is the folder
# of a release build. Programs that are not installed are skipped. Exits with 1 if --standard is
# slower than remind, 2 if it cannot measure.
. "$(dirname "$0")/measure.sh"

readonly runs=40
readonly standard_limit=1.0  # times remind

[[ $# -eq 1 ]] || die "usage: others.sh BUILD"
need hyperfine hyperfine
need python3 python3
need_programs "$1" veldrin-calendar
build=$(cd "$1" && pwd)
here=$(cd "$(dirname "$0")" && pwd)
readonly build here
readonly veldrin="$build/veldrin-calendar --latitude=47.5 --longitude=-122.5 --time-zone=-8 --year=2030"
cd "$work"
export HOME=$work TZ=America/Los_Angeles

# side NAME COMMAND: adds a command to measure.
sides=()
side() { sides+=(-n "$1" "$2"); }

side veldrin-calendar "$veldrin --output=$work/veldrin.ics"
if "$build/veldrin-calendar" --help | grep -q -- --standard; then
  # Writes to standard output, like hdate and remind: replacing a file waits for the disk.
  side "veldrin-calendar --standard" "$veldrin --standard --output=-"
fi
if command -v hdate >/dev/null; then
  side hdate "hdate -q -s -T -l 47.5 -L -122.5 -z -8 2030"
else
  line "hdate" "not installed"
fi
if command -v remind >/dev/null; then
  printf '%s\n' 'SET $Latitude "47.5"' 'SET $Longitude "-122.5"' \
    'REM MSG Sunrise [sunrise(trigdate())], sunset [sunset(trigdate())]' >sun.rem
  side remind "remind -s12 $work/sun.rem 2030-01-01"
else
  line "remind" "not installed"
fi
if command -v node >/dev/null && command -v npm >/dev/null &&
  npm install --prefix "$work" --silent --no-audit --no-fund suncalc >"$work/log" 2>&1; then
  export NODE_PATH=$work/node_modules
  side "node with suncalc" "node $here/others.js $work/node.ics"
else
  line "node with suncalc" "not installed"
fi

hyperfine -N --warmup 3 --runs "$runs" --output "$work/output" --export-json "$work/sides.json" \
  "${sides[@]}" >"$work/log" 2>&1 || die "hyperfine failed: $(cat "$work/log")"

while IFS='|' read -r name time ratio; do
  line "a year by $name, ms" "$time"
  [[ $name = veldrin-calendar ]] || line "ratio to veldrin-calendar" "$ratio"
done < <(python3 - "$work/sides.json" <<'PYTHON'
import json, sys
sides = json.load(open(sys.argv[1]))["results"]
own = sides[0]["median"]
for side in sides:
    print(side["command"], f"{side['median'] * 1000:.1f}", f"{side['median'] / own:.2f}", sep="|")
PYTHON
)
if command -v remind >/dev/null; then
  row "--standard, to remind" "$(python3 - "$work/sides.json" <<'PYTHON'
import json, sys
medians = {side["command"]: side["median"] for side in json.load(open(sys.argv[1]))["results"]}
print(f"{medians['veldrin-calendar --standard'] / medians['remind']:.2f}")
PYTHON
  )" "$standard_limit" times
fi
exit "$status"
