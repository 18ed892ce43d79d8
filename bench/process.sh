#!/usr/bin/env bash
# process.sh BUILD
#
# Measures whole processes: the instructions that veldrin-calendar and bare-calendar spend on the
# same year, those of the status of one day beside those of a program that does nothing, and the peak
# memory of veldrin-calendar. BUILD is the directory of a release build
# with VELDRIN_BENCH; nothing is built here. Exits 1 when a limit is broken, 2 when it cannot
# measure.
set -euo pipefail

readonly instruction_limit=1.5        # times those of bare-calendar
readonly status_limit=2.5             # times those of empty-program
readonly memory_limit=$((8 * 1024))   # KiB
readonly latitude=47.5 longitude=-122.5 zone=-8 year=2030

# One zone and one form of dates on every machine.
export LC_ALL=C TZ=UTC

die() {
  echo "process.sh: $*" >&2
  exit 2
}

[[ $# -eq 1 ]] || die "usage: process.sh BUILD"
command -v valgrind >/dev/null || die "valgrind is missing (package valgrind)"
readonly gnu_time=/usr/bin/time
[[ -x $gnu_time ]] || die "$gnu_time is missing (package time)"

for program in veldrin-calendar bench/bare-calendar bench/empty-program; do
  [[ -x $1/$program ]] || die "$1 holds no $program; configure with -DVELDRIN_BENCH=ON and build"
done

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

veldrin=("$1/veldrin-calendar" "--latitude=$latitude" "--longitude=$longitude"
  "--time-zone=$zone" "--year=$year" "--output=$work/veldrin.ics")
bare=("$1/bench/bare-calendar" "$latitude" "$longitude" "$zone" "$year" "$work/bare.ics")

# instructions COMMAND...: what the whole process executed, from its first instruction to its last.
instructions() {
  valgrind --tool=callgrind --callgrind-out-file="$work/profile" "$@" 2>"$work/log" >&2 ||
    die "callgrind failed: $(cat "$work/log")"
  sed -n 's/^==[0-9]*== Collected : \([0-9]*\)$/\1/p' "$work/log"
}

# quotient A B: A / B with three decimals.
quotient() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.3f", a / b }'; }

bare_instructions=$(instructions "${bare[@]}")
veldrin_instructions=$(instructions "${veldrin[@]}")
[[ -n $bare_instructions && -n $veldrin_instructions ]] || die "callgrind gave no count"
empty_instructions=$(instructions "$1/bench/empty-program")
status_instructions=$(instructions "$1/veldrin-calendar" --status=2026-06-21)
cmp -s "$work/bare.ics" "$work/veldrin.ics" || die "the two programs wrote different documents"

"$gnu_time" -v -o "$work/time" "${veldrin[@]}"
memory=$(sed -n 's/.*Maximum resident set size (kbytes): //p' "$work/time")
[[ -n $memory ]] || die "$gnu_time gave no peak memory"

status=0
# row WHAT VALUE LIMIT UNIT: prints a row, and remembers a value above its limit.
row() {
  local verdict=kept
  if awk -v value="$2" -v limit="$3" 'BEGIN { exit !(value > limit) }'; then
    verdict=BROKEN
    status=1
  fi
  printf '%-44s %12s   limit %s %s: %s\n' "$1" "$2" "$3" "$4" "$verdict"
}

printf '%-44s %12s\n' "instructions of bare-calendar" "$bare_instructions"
printf '%-44s %12s\n' "instructions of veldrin-calendar" "$veldrin_instructions"
row "ratio of the instructions" "$(quotient "$veldrin_instructions" "$bare_instructions")" \
  "$instruction_limit" times
printf '%-44s %12s\n' "instructions of an empty program" "$empty_instructions"
printf '%-44s %12s\n' "instructions of veldrin-calendar --status" "$status_instructions"
row "ratio of the instructions" "$(quotient "$status_instructions" "$empty_instructions")" \
  "$status_limit" times
row "peak memory of veldrin-calendar" "$memory" "$memory_limit" KiB
exit "$status"
