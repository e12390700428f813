#!/usr/bin/env bash
# Makes the SQLite amalgamation (sqlite3.c, sqlite3.h) that the Windows builds
# compile in, from Debian's own source package of the SQLite that the Linux
# build links against (same version, same Debian patches):
#   1. adds a deb-src entry for the system's Debian suites, once;
#   2. `apt-get source --download-only sqlite3` and unpacks it with its patches;
#   3. runs the source tree's own `make sqlite3.c` (needs tclsh and a host C
#      compiler, both in install-deps.sh).
# The result is cached: a second run does nothing.
#
#   scripts/mingw-sqlite.sh [OUTPUT_DIR]   (default: build/cache/sqlite-amalgamation)
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
out=${1:-$root/build/cache/sqlite-amalgamation}
work=$root/build/cache/sqlite-source

if [ -s "$out/sqlite3.c" ] && [ -s "$out/sqlite3.h" ]; then
  echo "mingw-sqlite: $out is ready"
  exit 0
fi

sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then sudo_cmd=(sudo); fi

have_deb_src() {
  grep -rqsE '^(Types:.*deb-src|deb-src )' /etc/apt/sources.list /etc/apt/sources.list.d/
}
if ! have_deb_src; then
  # The suites of the system's own Debian entry (bookworm bookworm-updates).
  suites=$(. /etc/os-release && echo "$VERSION_CODENAME $VERSION_CODENAME-updates")
  echo "mingw-sqlite: adding a deb-src entry for: $suites"
  printf 'Types: deb-src\nURIs: http://deb.debian.org/debian\nSuites: %s\nComponents: main\nSigned-By: /usr/share/keyrings/debian-archive-keyring.gpg\n' \
    "$suites" | "${sudo_cmd[@]}" tee /etc/apt/sources.list.d/ringbook-deb-src.sources >/dev/null
  "${sudo_cmd[@]}" apt-get update
fi

rm -rf "$work"
mkdir -p "$work"
cd "$work"
if ! apt-get source --download-only sqlite3; then
  # The source index may be older than the entry: refresh it once and retry.
  "${sudo_cmd[@]}" apt-get update
  apt-get source --download-only sqlite3
fi
dsc=$(ls sqlite3_*.dsc | head -n1)
dpkg-source -x "$dsc" tree >/dev/null
mkdir -p tree/bld
cd tree/bld
../configure --disable-tcl >configure.log 2>&1 || { tail -n 30 configure.log; exit 1; }
make sqlite3.c >make.log 2>&1 || { tail -n 30 make.log; exit 1; }

mkdir -p "$out"
cp sqlite3.c sqlite3.h "$out/"
cp ../VERSION "$out/VERSION"
echo "mingw-sqlite: SQLite $(cat "$out/VERSION") amalgamation in $out"
rm -rf "$work"
