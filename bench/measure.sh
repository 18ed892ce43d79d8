# Sourced by the other scripts of bench/. `work` is a temporary folder, deleted at exit.

set -euo pipefail

# The same time zone and date format on all machines.
export LC_ALL=C TZ=UTC

die() {
  echo "${0##*/}: $*" >&2
  exit 2
}

# need COMMAND PACKAGE
need() { command -v "$1" >/dev/null || die "$1 is missing (package $2)"; }

# need_programs BUILD PROGRAM...
need_programs() {
  local build=$1 program
  for program in "${@:2}"; do
    [[ -x $build/$program ]] ||
      die "$build/$program is missing; configure with -DVELDRIN_BENCH=ON and build"
  done
}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# instructions COMMAND...: prints the number of instructions that the process executes.
instructions() {
  valgrind --tool=callgrind --callgrind-out-file="$work/profile" "$@" 2>"$work/log" >&2 ||
    die "callgrind failed: $(cat "$work/log")"
  sed -n 's/^==[0-9]*== Collected : \([0-9]*\)$/\1/p' "$work/log" | grep . ||
    die "callgrind printed no count"
}

# quotient A B: A / B with three decimals.
quotient() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.3f", a / b }'; }

# line WHAT VALUE: prints a row without a limit.
line() { printf '%-44s %12s\n' "$1" "$2"; }

status=0
# row WHAT VALUE LIMIT UNIT: prints a row; sets status=1 if the value exceeds the limit.
row() {
  local verdict=kept
  if awk -v value="$2" -v limit="$3" 'BEGIN { exit !(value > limit) }'; then
    verdict=BROKEN
    status=1
  fi
  printf '%-44s %12s   limit %s %s: %s\n' "$1" "$2" "$3" "$4" "$verdict"
}
