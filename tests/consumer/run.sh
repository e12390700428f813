#!/usr/bin/env bash
# Installs the built library into a temporary prefix and builds and runs an
# outside project against it with find_package(ringbook CONFIG).
set -euo pipefail
build_dir=$1
source_dir=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cmake --install "$build_dir" --prefix "$work/prefix" >/dev/null
flags=""
# A sanitized library needs the sanitizer runtimes on the consumer's link line.
if grep -q 'RINGBOOK_SANITIZE:BOOL=ON' "$build_dir/CMakeCache.txt"; then
  flags="-fsanitize=address,undefined"
fi
cmake -S "$source_dir/tests/consumer" -B "$work/build" -G Ninja \
  -DCMAKE_PREFIX_PATH="$work/prefix" -DCMAKE_CXX_FLAGS="$flags" >/dev/null
cmake --build "$work/build" >/dev/null
"$work/build/consumer"
