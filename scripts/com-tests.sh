#!/usr/bin/env bash
# Black-box tests of the COM server under Wine, as a host would use it.
#
#   scripts/com-tests.sh WIN64_BUILD_DIR [WIN32_BUILD_DIR]
#
# WIN64_BUILD_DIR is an x86_64 build (cmake/toolchains/mingw-x86_64.cmake)
# holding com/Korvat_Ringbook.dll and com/client/com_client.exe;
# WIN32_BUILD_DIR an i686 one, whose DLL is only inspected (only 64-bit Wine
# is installed here).
#
# Steps: a fresh Wine prefix under the build folder; regsvr32 of the x86_64
# DLL; each tests/com/*.vbs (after tests/com/prelude.vbs) under Windows
# Script Host; the C++ client through the vtable; the PE checks of both
# DLLs; regsvr32 /u and a script that must then fail to create objects.
#
# Windows Script Host under Wine exits with status 0 whatever the script
# did, so each script writes its checks to a result file that must end with
# "DONE failures=0"; a script that stopped early has no such line.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
win64=$(cd "${1:?usage: $0 WIN64_BUILD_DIR [WIN32_BUILD_DIR]}" && pwd)
win32=${2:-}

dll64=$win64/com/Korvat_Ringbook.dll
client=$win64/com/client/com_client.exe
for f in "$dll64" "$client"; do
  [ -f "$f" ] || { echo "com-tests: missing $f" >&2; exit 1; }
done

wine=$(command -v wine64 || true)
[ -n "$wine" ] || wine=/usr/lib/wine/wine64
[ -x "$wine" ] || { echo "com-tests: wine64 not found (scripts/install-deps.sh)" >&2; exit 1; }
wineserver=$(command -v wineserver || true)
[ -n "$wineserver" ] || wineserver=/usr/lib/wine/wineserver

# Headless and quiet: no display, no debug channels, no Mono or Gecko
# installer prompts.
unset DISPLAY WAYLAND_DISPLAY
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml="
export WINEPREFIX=$win64/com-tests/prefix
export WINEARCH=win64

failures=0
passed=0
fail() {
  echo "FAIL: $*"
  failures=$((failures + 1))
}
pass() {
  echo "ok: $*"
  passed=$((passed + 1))
}

stop_wine() { "$wineserver" -k >/dev/null 2>&1 || true; }
trap stop_wine EXIT

echo "com-tests: new Wine prefix $WINEPREFIX"
stop_wine
rm -rf "$win64/com-tests"
mkdir -p "$win64/com-tests"
timeout 300 "$wine" wineboot --init >/dev/null 2>&1 || true
"$wineserver" -w || true
[ -d "$WINEPREFIX/drive_c/windows/system32" ] || { echo "com-tests: prefix creation failed" >&2; exit 1; }

work=$WINEPREFIX/drive_c/ringbook
mkdir -p "$work/results" "$work/data"
cp "$dll64" "$work/Korvat_Ringbook.dll"
cp "$client" "$work/com_client.exe"

# Runs one script: tests/com/prelude.vbs followed by the test, with the
# result file as its argument. Extra arguments are NAME=VALUE settings of
# the environment, and so is each "' env: NAME=VALUE" line of the script
# (Windows Script Host under Wine cannot set the process environment).
run_script() {
  local test=$1
  shift
  local settings=("$@")
  local line
  while IFS= read -r line; do
    settings+=("${line#"' env: "}")
  done < <(grep "^' env: " "$test" | tr -d '\r')
  local name
  name=$(basename "$test" .vbs)
  local script=$work/$name.vbs
  local result=$work/results/$name.txt
  cat "$root/tests/com/prelude.vbs" "$test" >"$script"
  rm -f "$result"
  env "${settings[@]}" timeout 300 "$wine" wscript.exe //B "C:\\ringbook\\$name.vbs" "C:\\ringbook\\results\\$name.txt" \
    >"$work/results/$name.log" 2>&1 || true
  if [ ! -f "$result" ]; then
    fail "$name: no result file"
    return
  fi
  tr -d '\r' <"$result" >"$result.lf"
  grep '^FAIL' "$result.lf" | sed "s/^/  $name: /" || true
  if [ "$(grep -v '^$' "$result.lf" | tail -n 1)" = "DONE failures=0" ]; then
    pass "$name ($(grep -c '^ok' "$result.lf") checks)"
  else
    fail "$name: $(grep -v '^$' "$result.lf" | tail -n 1)"
  fi
}

echo "com-tests: regsvr32 Korvat_Ringbook.dll"
if timeout 120 "$wine" regsvr32 /s 'C:\ringbook\Korvat_Ringbook.dll' >/dev/null 2>&1; then
  pass "regsvr32"
else
  fail "regsvr32 exited with $?"
fi

env_common=(
  "RINGBOOK_MESSAGE_LOG=C:\\ringbook\\results\\messages.log"
  "RINGBOOK_DATA_DIR=C:\\ringbook\\data"
  "RINGBOOK_DB=C:\\ringbook\\data\\world.db"
)
for test in "$root"/tests/com/test_*.vbs; do
  run_script "$test" "${env_common[@]}"
done

echo "com-tests: C++ client through the vtable"
if env "${env_common[@]}" timeout 300 "$wine" 'C:\ringbook\com_client.exe' 'C:\ringbook\Korvat_Ringbook.dll' \
  >"$work/results/client.txt" 2>&1; then
  tr -d '\r' <"$work/results/client.txt" | grep '^FAIL' || true
  if tr -d '\r' <"$work/results/client.txt" | grep -qx 'DONE failures=0'; then
    pass "client ($(tr -d '\r' <"$work/results/client.txt" | grep -c '^ok') checks)"
  else
    fail "client: no clean DONE line"
  fi
else
  tr -d '\r' <"$work/results/client.txt" | tail -n 20
  fail "client exited with an error"
fi

# Both DLLs: the right PE kind, the four entry points undecorated, and
# nothing imported but system DLLs (the runtimes are linked in).
check_dll() {
  local dll=$1 objdump=$2 format=$3 label=$4
  if [ ! -f "$dll" ]; then
    fail "$label: $dll missing"
    return
  fi
  local head exports imports
  head=$("$objdump" -f "$dll")
  if grep -q "file format $format" <<<"$head"; then pass "$label is $format"; else fail "$label is not $format"; fi
  exports=$("$objdump" -p "$dll" | sed -n '/\[Ordinal\/Name Pointer\] Table/,/^$/p')
  local e
  for e in DllCanUnloadNow DllGetClassObject DllRegisterServer DllUnregisterServer; do
    if grep -qE "\] $e\$" <<<"$exports"; then pass "$label exports $e"; else fail "$label does not export $e"; fi
  done
  imports=$("$objdump" -p "$dll" | sed -n 's/^\s*DLL Name: //p' | tr 'A-Z' 'a-z' | sort -u)
  local bad
  bad=$(grep -vxE 'kernel32.dll|user32.dll|advapi32.dll|ole32.dll|oleaut32.dll|msvcrt.dll' <<<"$imports" || true)
  if [ -z "$bad" ]; then pass "$label imports system DLLs only"; else fail "$label imports $bad"; fi
}
check_dll "$dll64" x86_64-w64-mingw32-objdump pei-x86-64 "x86_64 DLL"
if [ -n "$win32" ]; then
  check_dll "$win32/com/Korvat_Ringbook.dll" i686-w64-mingw32-objdump pei-i386 "i686 DLL"
fi

echo "com-tests: regsvr32 /u"
if timeout 120 "$wine" regsvr32 /u /s 'C:\ringbook\Korvat_Ringbook.dll' >/dev/null 2>&1; then
  pass "regsvr32 /u"
else
  fail "regsvr32 /u exited with $?"
fi
run_script "$root/tests/com/after_unregister.vbs" "${env_common[@]}"

echo "com-tests: $passed passed, $failures failed"
[ "$failures" -eq 0 ]
