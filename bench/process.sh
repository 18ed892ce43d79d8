#!/usr/bin/env bash
# process.sh BUILD
#
# Measures whole processes: the instructions of veldrin-calendar and veldrin-bare-calendar for one
# year, those of veldrin-calendar --status and of an empty program, and the peak memory of
# veldrin-calendar. BUILD is the folder of a release build with VELDRIN_BENCH=ON. Exits with 1 if a
# limit is exceeded, 2 if it cannot measure.
. "$(dirname "$0")/measure.sh"

readonly instruction_limit=1.5        # times veldrin-bare-calendar
readonly status_limit=2.5             # times veldrin-empty-program
readonly memory_limit=$((8 * 1024))   # KiB
readonly latitude=47.5 longitude=-122.5 zone=-8 year=2030

[[ $# -eq 1 ]] || die "usage: process.sh BUILD"
need valgrind valgrind
readonly gnu_time=/usr/bin/time
[[ -x $gnu_time ]] || die "$gnu_time is missing (package time)"
need_programs "$1" veldrin-calendar bench/veldrin-bare-calendar bench/veldrin-empty-program

veldrin=("$1/veldrin-calendar" "--latitude=$latitude" "--longitude=$longitude"
  "--time-zone=$zone" "--year=$year" "--output=$work/veldrin.ics")
bare=("$1/bench/veldrin-bare-calendar" "$latitude" "$longitude" "$zone" "$year" "$work/bare.ics")

bare_instructions=$(instructions "${bare[@]}")
veldrin_instructions=$(instructions "${veldrin[@]}")
empty_instructions=$(instructions "$1/bench/veldrin-empty-program")
status_instructions=$(instructions "$1/veldrin-calendar" --status=2026-06-21)
cmp -s "$work/bare.ics" "$work/veldrin.ics" || die "the two programs wrote different documents"

"$gnu_time" -v -o "$work/time" "${veldrin[@]}"
memory=$(sed -n 's/.*Maximum resident set size (kbytes): //p' "$work/time")
[[ -n $memory ]] || die "$gnu_time printed no peak memory"

line "instructions of veldrin-bare-calendar" "$bare_instructions"
line "instructions of veldrin-calendar" "$veldrin_instructions"
row "ratio of the instructions" "$(quotient "$veldrin_instructions" "$bare_instructions")" \
  "$instruction_limit" times
line "instructions of an empty program" "$empty_instructions"
line "instructions of veldrin-calendar --status" "$status_instructions"
row "ratio of the instructions" "$(quotient "$status_instructions" "$empty_instructions")" \
  "$status_limit" times
row "peak memory of veldrin-calendar" "$memory" "$memory_limit" KiB
exit "$status"
