#!/usr/bin/env bash
# Runs every fuzz_* binary of a build folder for a given number of seconds
# each, starting from the seed corpus committed under fuzz/corpus/<target>/.
# New inputs go to <build folder>/corpus/<target>/ (the committed seeds are
# only read); crashes are written to <build folder>/artifacts/.
# Exits non-zero when any fuzzer fails or when there is none to run.
#
#   scripts/run-fuzzers.sh build/fuzz/fuzz 20
#
# Extra libFuzzer flags can be given in FUZZ_FLAGS.
set -euo pipefail

if [ $# -ne 2 ]; then
  echo "usage: $0 <folder with fuzz_* binaries> <seconds per fuzzer>" >&2
  exit 2
fi
bin_dir=$1
seconds=$2
seeds_root=$(cd "$(dirname "$0")/../fuzz/corpus" && pwd)

fuzzers=()
for f in "$bin_dir"/fuzz_*; do
  [ -f "$f" ] && [ -x "$f" ] && fuzzers+=("$f")
done
if [ ${#fuzzers[@]} -eq 0 ]; then
  echo "run-fuzzers: no fuzz_* binaries in $bin_dir" >&2
  exit 1
fi

mkdir -p "$bin_dir/artifacts"
failed=()
for f in "${fuzzers[@]}"; do
  name=$(basename "$f")
  work="$bin_dir/corpus/$name"
  mkdir -p "$work"
  corpora=("$work")
  [ -d "$seeds_root/$name" ] && corpora+=("$seeds_root/$name")
  echo "== $name: ${seconds}s"
  # Inputs are small, so one allocation of more than 64 MB is a fault: it
  # means a length read from the input was trusted.
  # shellcheck disable=SC2086
  if ! "$f" -max_total_time="$seconds" -malloc_limit_mb=64 -print_final_stats=1 \
      -artifact_prefix="$bin_dir/artifacts/$name-" ${FUZZ_FLAGS:-} "${corpora[@]}"; then
    failed+=("$name")
  fi
done

if [ ${#failed[@]} -gt 0 ]; then
  echo "run-fuzzers: FAILED: ${failed[*]} (inputs in $bin_dir/artifacts)" >&2
  exit 1
fi
echo "run-fuzzers: ${#fuzzers[@]} fuzzer(s) passed"
