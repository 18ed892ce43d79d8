#!/usr/bin/env bash
# package.sh BUILD: makes the Debian package of a build with both programs and checks it. Installs it
# in an empty folder, runs veldrin-calendar there and removes the package. Needs no superuser.
set -euo pipefail

fail() {
  printf 'package.sh: %s\n' "$*" >&2
  exit 1
}

# same WHAT ACTUAL EXPECTED
same() {
  [ "$2" = "$3" ] || fail "$1 (< is, > should be):"$'\n'"$(diff <(printf '%s\n' "$2") <(printf '%s\n' "$3"))"
}

build=$1
version=$("$build/veldrin-calendar" --version | grep -o '[0-9.]*$')
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C PATH=$PATH:/usr/sbin:/sbin

# The package must not depend on the umask.
umask 077
(cd "$work" && cpack --config "$build/CPackConfig.cmake" -B "$work") >"$work/log" 2>&1 ||
  fail "cpack failed: $(cat "$work/log")"
package=$work/veldrin_${version}_$(dpkg --print-architecture).deb

fields='${Package} ${Version} ${Section} ${Priority}'
same "the fields" "$(dpkg-deb -W --showformat="$fields" "$package")" "veldrin $version science optional"
for needed in libc6 libstdc++6 libqt6widgets6; do
  dpkg-deb -f "$package" Depends | grep -qF "$needed (>= " || fail "the package does not depend on $needed"
done
dpkg-deb -f "$package" Description | awk 'length > 80 { exit 1 }' || fail "the description is too wide"

same "the files" "$(dpkg-deb -c "$package" | awk '$1 !~ /^d/ { print $1, $2, $6 }' | sort -k 3)" "\
-rwxr-xr-x root/root ./usr/bin/veldrin
-rwxr-xr-x root/root ./usr/bin/veldrin-calendar
-rw-r--r-- root/root ./usr/share/applications/org.veldrin.Veldrin.desktop
-rw-r--r-- root/root ./usr/share/bash-completion/completions/veldrin-calendar
-rw-r--r-- root/root ./usr/share/doc/veldrin/changelog.gz
-rw-r--r-- root/root ./usr/share/doc/veldrin/copyright
-rw-r--r-- root/root ./usr/share/icons/hicolor/128x128/apps/org.veldrin.Veldrin.png
-rw-r--r-- root/root ./usr/share/icons/hicolor/16x16/apps/org.veldrin.Veldrin.png
-rw-r--r-- root/root ./usr/share/icons/hicolor/32x32/apps/org.veldrin.Veldrin.png
-rw-r--r-- root/root ./usr/share/icons/hicolor/48x48/apps/org.veldrin.Veldrin.png
-rw-r--r-- root/root ./usr/share/icons/hicolor/scalable/apps/org.veldrin.Veldrin.svg
-rw-r--r-- root/root ./usr/share/man/man1/veldrin-calendar.1.gz
-rw-r--r-- root/root ./usr/share/man/man1/veldrin.1.gz
-rw-r--r-- root/root ./usr/share/metainfo/org.veldrin.Veldrin.metainfo.xml"
same "the modes of the folders" \
  "$(dpkg-deb -c "$package" | awk '/^d/ { print $1, $2 }' | sort -u)" "drwxr-xr-x root/root"

# in_root OPTION...: runs dpkg with $root as its root folder. It installs all files, even if dpkg's
# settings on this computer exclude some.
root=$work/root
in_root() {
  dpkg --root="$root" --log="$work/dpkg.log" --force-not-root --force-depends --path-include='*' \
    "$@" >"$work/log" 2>&1 || fail "dpkg $1 failed: $(cat "$work/log")"
}
mkdir -p "$root/var/lib/dpkg/"{info,updates}
touch "$root/var/lib/dpkg/status"
in_root --install "$package"
in_root --verify veldrin
same "the output of dpkg --verify" "$(cat "$work/log")" ""

same "the installed version" "$("$root/usr/bin/veldrin-calendar" --version | grep -o '[0-9.]*$')" "$version"
"$root/usr/bin/veldrin-calendar" --year=2030 --output=- | grep -q '^END:VCALENDAR' ||
  fail "the installed veldrin-calendar writes no calendar"
for manual in "$root"/usr/share/man/man1/*.gz; do
  same "the complaints about $manual" "$(man --warnings --local-file "$manual" 2>&1 >/dev/null)" ""
done
zcat "$root/usr/share/doc/veldrin/changelog.gz" >"$work/changelog"
same "the change log's version" "$(dpkg-parsechangelog -l "$work/changelog" -S Version)" "$version"

in_root --purge veldrin
same "the files after the removal" "$(find "$root" -path "$root/var/lib/dpkg" -prune -o ! -type d -print)" ""
[ ! -e "$root/usr" ] || fail "folders after the removal: $(find "$root/usr")"
