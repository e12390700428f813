#!/usr/bin/env bash
# Runs every *_bench binary of a build folder, one after the other.
# Extra Google Benchmark flags can be given after the folder, for example
#   scripts/run-benchmarks.sh build/default/bench --benchmark_repetitions=3
# Exits non-zero when a benchmark fails or when there is none to run.
set -euo pipefail

if [ $# -lt 1 ]; then
  echo "usage: $0 <folder with *_bench binaries> [benchmark flags...]" >&2
  exit 2
fi
bin_dir=$1
shift

benches=()
for f in "$bin_dir"/*_bench; do
  [ -f "$f" ] && [ -x "$f" ] && benches+=("$f")
done
if [ ${#benches[@]} -eq 0 ]; then
  echo "run-benchmarks: no *_bench binaries in $bin_dir" >&2
  exit 1
fi

status=0
for f in "${benches[@]}"; do
  echo "== $(basename "$f")"
  "$f" "$@" || status=1
done
exit $status
