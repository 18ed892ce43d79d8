# Sourced by ./run, ./test, .ci/run and others, from the root of the project.

set -euo pipefail

say() { printf '== %s\n' "$*"; }

fail() {
  printf 'Veldrin: %s\n' "$*" >&2
  exit 1
}

# need_packages PACKAGE...: installs the missing packages.
need_packages() {
  local package missing=()
  command -v dpkg-query >/dev/null && command -v apt-get >/dev/null ||
    fail "apt-get is missing; install these packages by hand: $*"
  for package in "$@"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
      missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  say "Installing ${missing[*]}"
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || fail "installing these packages needs root: ${missing[*]}"
    as_root=(sudo)
  fi
  "${as_root[@]}" apt-get update -qq || say "The package lists could not be updated; using the old ones"
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null ||
    fail "could not install: ${missing[*]}"
}

# Packages for veldrin-calendar, the window, tests with a display, other tests, benchmarks.
BUILD_PACKAGES=(g++ cmake ninja-build libcli11-dev libabsl-dev libutf8proc-dev)
WINDOW_PACKAGES=(qt6-base-dev)
SCREEN_PACKAGES=(xvfb openbox xdotool imagemagick fonts-dejavu-core python3-gi gir1.2-atspi-2.0
  at-spi2-core dbus-daemon)
TEST_PACKAGES=(libgtest-dev libgmock-dev libical-dev pkg-config locales tzdata desktop-file-utils appstream
  dpkg-dev file man-db strace python3-icalendar python3-vobject)
BENCH_PACKAGES=(libbenchmark-dev valgrind time)
# Clang, with its sanitizers and libFuzzer.
CLANG_PACKAGES=(clang libclang-rt-dev)

# Locales for the tests: German, which many tests use, one for each other date format of the C
# library, and one that is not UTF-8.
TEST_LOCALES=(de_DE.UTF-8 en_US.UTF-8 en_GB.UTF-8 hi_IN.UTF-8 bg_BG.UTF-8 fr_CH.UTF-8 sr_RS.UTF-8
  lv_LV.UTF-8 sv_SE.UTF-8 ne_NP.UTF-8 nl_NL.UTF-8 fo_FO.UTF-8 ce_RU.UTF-8 th_TH.UTF-8 nb_NO.UTF-8
  is_IS.UTF-8 ms_MY.UTF-8 mt_MT.UTF-8 ar_EG.UTF-8 ug_CN.UTF-8 kl_GL.UTF-8 en_HK.UTF-8 eu_ES.UTF-8
  ps_AF.UTF-8 my_MM.UTF-8 fa_IR.UTF-8 zh_CN.UTF-8 fr_FR.ISO-8859-1)

# test_locales FOLDER: creates the missing locales in FOLDER. Run the tests with LOCPATH=FOLDER.
test_locales() {
  local name missing=()
  for name in "${TEST_LOCALES[@]}"; do
    [ -e "$1/$name/LC_NUMERIC" ] || missing+=("$name")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  say "Creating ${#missing[@]} locales for the tests"
  mkdir -p "$1"
  printf '%s\n' "${missing[@]}" | xargs -P "$(nproc)" -I NAME \
    bash -c 'localedef -i "${1%.*}" -f "${1#*.}" "$2/$1"' - NAME "$1" ||
    fail "localedef failed"
}

# configure PRESET [CMAKE-OPTION...]: configures the build, with ccache if it is installed.
configure() {
  local preset=$1 options=()
  shift
  [ "$preset" = tidy ] || ! command -v ccache >/dev/null ||
    options+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
  cmake --preset "$preset" "${options[@]}" "$@" >"build-$preset.log" 2>&1 && rm -f "build-$preset.log" || {
    cat "build-$preset.log" >&2
    rm -f "build-$preset.log"
    fail "the project could not be configured"
  }
}

# build PRESET [CMAKE-OPTION...]: configures and builds.
build() {
  say "Building ($1)"
  configure "$@"
  cmake --build --preset "$1" -- --quiet || fail "the project could not be built"
}
