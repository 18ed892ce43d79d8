#!/usr/bin/env bash
# places.sh BUILD
#
# Compares runs of veldrin-calendar: a zone and a town with coordinates and a clock by numbers, a
# picture with a calendar of three twilights. BUILD is the folder of a release build. Exits with 1 if
# a limit is exceeded, 2 if it cannot measure.
. "$(dirname "$0")/measure.sh"

readonly zone_limit=1.0 town_limit=2.0   # ms more than by numbers
readonly chart_limit=2.0                 # times --standard with three twilights
readonly memory_limit=4096               # KiB more than by numbers
readonly runs=${RUNS:-200}

[[ $# -eq 1 ]] || die "usage: places.sh BUILD"
need hyperfine hyperfine
readonly gnu_time=/usr/bin/time
[[ -x $gnu_time ]] || die "$gnu_time is missing (package time)"
need_programs "$1" veldrin-calendar

readonly place="--latitude=47.9959 --longitude=7.8522 --year=2030"
readonly twilights="--twilight=civil --twilight=nautical --twilight=astronomical"
readonly calendar="$1/veldrin-calendar --standard --output=$work/year.ics"
readonly numbers="$calendar $place --time-zone=1 --dst-start=2030-03-31 --dst-end=2030-10-27"
readonly zone="$calendar $place --zone=Europe/Berlin"
readonly town="$calendar --year=2030 --town=Freiburg"
readonly picture="$1/veldrin-calendar --year=2030 --town=Freiburg --chart=$work/year.svg"

hyperfine -N --warmup 5 --runs "$runs" --export-json "$work/sides.json" \
  "$numbers" "$zone" "$town" "$town $twilights" "$picture" >"$work/log" 2>&1 ||
  die "hyperfine failed: $(cat "$work/log")"
read -r zone_more town_more chart_ratio < <(python3 - "$work/sides.json" <<'PYTHON'
import json, sys
numbers, zone, town, twilights, picture = (side["median"] for side in json.load(open(sys.argv[1]))["results"])
print(f"{(zone - numbers) * 1000:.2f} {(town - numbers) * 1000:.2f} {picture / twilights:.2f}")
PYTHON
)

# peak COMMAND...: prints the peak memory in KiB.
peak() {
  "$gnu_time" -f %M -o "$work/time" "$@" >"$work/output"
  cat "$work/time"
}
# shellcheck disable=SC2086
memory_more=$(($(peak $town) - $(peak $numbers)))

row "--zone, ms more than by numbers" "$zone_more" "$zone_limit" ms
row "--town, ms more than by numbers" "$town_more" "$town_limit" ms
row "--chart, to --standard with three twilights" "$chart_ratio" "$chart_limit" times
row "--town, KiB more than by numbers" "$memory_more" "$memory_limit" KiB
exit "$status"
