#!/usr/bin/env bash
# Installs every Debian package the project builds, tests and fuzzes with.
# Safe to run again: apt-get skips what is already there.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config python3
  libsqlite3-dev libcli11-dev nlohmann-json3-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  clang libclang-rt-14-dev
)

# Windows build and Wine tests of the COM server (com/, scripts/com-tests.sh):
# the mingw-w64 cross compilers (win32 threads) and widl, the system IDL
# files and stdole2.tlb, 64-bit Wine to run the tests, and what
# scripts/mingw-sqlite.sh needs to make the SQLite amalgamation from
# Debian's source package (dpkg-source, tclsh).
packages+=(
  g++-mingw-w64-i686-win32 g++-mingw-w64-x86-64-win32 mingw-w64-tools
  libwine-dev wine64
  dpkg-dev tcl
)

sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then sudo_cmd=(sudo); fi

# Skip the slow index update when everything is already installed.
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ "${#missing[@]}" -eq 0 ]; then
  echo "install-deps: all ${#packages[@]} packages present"
  exit 0
fi
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update
"${sudo_cmd[@]}" apt-get install -y --no-install-recommends "${missing[@]}"
