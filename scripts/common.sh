# What ./run, ./test and .ci/run share. Sourced, from the root of the project.

set -euo pipefail

say() { printf '== %s\n' "$*"; }

fail() {
  printf 'Veldrin: %s\n' "$*" >&2
  exit 1
}

# need_packages PACKAGE...: installs those that are missing.
need_packages() {
  local package missing=()
  command -v dpkg-query >/dev/null && command -v apt-get >/dev/null ||
    fail "this script installs packages with apt-get, which this system does not have; install by hand: $*"
  for package in "$@"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
      missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  say "Installing ${missing[*]}"
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || fail "these packages are missing and need root to install: ${missing[*]}"
    as_root=(sudo)
  fi
  "${as_root[@]}" apt-get update -qq || say "The package lists could not be renewed; trying with those at hand"
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null ||
    fail "could not install: ${missing[*]}"
}

# What builds the core and the companion, what the window needs beside it, and what the tests and
# benchmarks do.
BUILD_PACKAGES=(g++ cmake ninja-build libcli11-dev)
WINDOW_PACKAGES=(qt6-base-dev)
SCREEN_PACKAGES=(xvfb openbox xdotool imagemagick fonts-dejavu-core python3-gi gir1.2-atspi-2.0
  at-spi2-core dbus-daemon)
TEST_PACKAGES=(libgtest-dev libgmock-dev libical-dev pkg-config locales tzdata desktop-file-utils appstream
  dpkg-dev file man-db)
BENCH_PACKAGES=(libbenchmark-dev valgrind time)

# german_locale FOLDER: makes a German locale there, for tests that run with LOCPATH=FOLDER.
german_locale() {
  [ -e "$1/de_DE.UTF-8/LC_NUMERIC" ] && return 0
  say "Making a German locale for the tests"
  mkdir -p "$1"
  localedef -i de_DE -f UTF-8 "$1/de_DE.UTF-8" || fail "localedef could not make a German locale"
}

# build PRESET [CMAKE-OPTION...]: configures and builds.
build() {
  local preset=$1
  shift
  say "Building ($preset)"
  cmake --preset "$preset" "$@" >"build-$preset.log" 2>&1 && rm -f "build-$preset.log" || {
    cat "build-$preset.log" >&2
    rm -f "build-$preset.log"
    fail "the project could not be configured"
  }
  cmake --build --preset "$preset" -- --quiet || fail "the project could not be built"
}
