#!/usr/bin/env bash
# The main job of `make run`: the ringbook tool at work.
set -euo pipefail
tool=${1:-build/default/cli/ringbook}
echo "== ringbook version"
"$tool" version
echo
echo "== ringbook stream demo"
"$tool" stream demo
