#!/usr/bin/env bash
# window.sh BUILD
#
# Measures the window on a virtual display: the time from the start to the first frame with a
# status, the resident memory at that frame, and a press of the year button. Start and memory are compared
# with a plain Qt window of the same size with one word, because drawing the first word loads the
# fonts. An empty window is measured too, without a limit. BUILD is the folder of a release build
# with VELDRIN_BENCH=ON. Exits with 1 if a limit is exceeded, 2 if it cannot measure.
. "$(dirname "$0")/measure.sh"

readonly start_limit=1.25    # times the window with a word
readonly memory_limit=1.15   # times the window with a word
readonly press_limit=20      # milliseconds
readonly rounds=40

[[ $# -eq 1 ]] || die "usage: window.sh BUILD"
need Xvfb xvfb
need hyperfine hyperfine
need python3 python3
need valgrind valgrind
need_programs "$1" veldrin-calendar bench/veldrin-bare-window bench/veldrin-status-window bench/veldrin-year-press
build=$(cd "$1" && pwd)
readonly build
readonly empty="$build/bench/veldrin-bare-window"
readonly word="$build/bench/veldrin-bare-window Sunrise"
readonly veldrin="$build/bench/veldrin-status-window"

# The save dialog shows the working folder.
cd "$work"

# No user settings, and no message bus on which Qt would look for a screen reader.
export HOME=$work XDG_CONFIG_HOME=$work/config XDG_RUNTIME_DIR=$work QT_QPA_PLATFORM=xcb
export DBUS_SESSION_BUS_ADDRESS=unix:path=$work/none
unset QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE QT_LINUX_ACCESSIBILITY_ALWAYS_ON QT_SCALE_FACTOR \
  XDG_CURRENT_DESKTOP

mkfifo "$work/number"
# Without -noreset, Xvfb restarts when its last client exits, and rejects new clients meanwhile.
Xvfb -noreset -displayfd 3 -screen 0 1024x768x24 3>"$work/number" 2>"$work/screen" &
screen=$!
trap 'kill "$screen" 2>/dev/null || true; wait; rm -rf "$work"' EXIT
read -r -t 10 number <"$work/number" || die "Xvfb did not start: $(cat "$work/screen")"
export DISPLAY=:$number

# round NUMBER: starts each program twice; odd rounds reverse the order, for a fair comparison.
round() {
  local sides=(-n empty "$empty" -n word "$word" -n veldrin "$veldrin")
  ((${1} % 2 == 0)) || sides=(-n veldrin "$veldrin" -n word "$word" -n empty "$empty")
  hyperfine -N --runs 2 --export-json "$work/round$1.json" "${sides[@]}" \
    >"$work/log" 2>&1 || die "hyperfine failed: $(cat "$work/log")"
}
for ((i = 0; i < rounds; ++i)); do round "$i"; done

# The tenth percentile of the start times: other load only makes a start slower, and the minimum may
# be an outlier.
read -r empty_start word_start veldrin_start < <(
  python3 - "$work"/round*.json <<'PYTHON'
import json, statistics, sys
sides = [side for file in sys.argv[1:] for side in json.load(open(file))["results"]]
for name in "empty", "word", "veldrin":
    times = [time for side in sides if side["command"] == name for time in side["times"]]
    print(f"{statistics.quantiles(times, n=10)[0] * 1000:.1f}", end=" ")
print()
PYTHON
) || die "hyperfine printed no times"

# Without quotes, so that the word becomes an argument.
empty_memory=$($empty) word_memory=$($word) veldrin_memory=$($veldrin)
empty_instructions=$(instructions $empty) word_instructions=$(instructions $word)
veldrin_instructions=$(instructions $veldrin)

read -r press fast_press < <(timeout 60 "$build/bench/veldrin-year-press" "$work/window.ics") ||
  die "no press was measured"
"$build/veldrin-calendar" --year=2020 "--output=$work/calendar.ics"
cmp -s "$work/window.ics" "$work/calendar.ics" || die "the button wrote a different document"

line "start of an empty window, ms" "$empty_start"
line "start of a window with a word, ms" "$word_start"
line "start of veldrin, ms" "$veldrin_start"
row "ratio to the window with a word" "$(quotient "$veldrin_start" "$word_start")" \
  "$start_limit" times
line "ratio to the empty window" "$(quotient "$veldrin_start" "$empty_start")"
line "memory of an empty window, KiB" "$empty_memory"
line "memory of a window with a word, KiB" "$word_memory"
line "memory of veldrin, KiB" "$veldrin_memory"
row "ratio to the window with a word" "$(quotient "$veldrin_memory" "$word_memory")" \
  "$memory_limit" times
line "ratio to the empty window" "$(quotient "$veldrin_memory" "$empty_memory")"
line "instructions of an empty window" "$empty_instructions"
line "instructions of a window with a word" "$word_instructions"
line "instructions of veldrin" "$veldrin_instructions"
line "ratio to the window with a word" "$(quotient "$veldrin_instructions" "$word_instructions")"
row "a press of the year button, ms" "$press" "$press_limit" ms
line "the tenth percentile of the presses, ms" "$fast_press"
exit "$status"
