#!/usr/bin/env bash
# The main job of `make run`: the ringbook tool at work on a game world kept
# in build/world, created on the first run and reused after it.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
tool=${1:-$root/build/default/cli/ringbook}
world=$root/build/world
db=$world/ringbook.db
rb() { "$tool" --db "$db" --data-dir "$world" "$@"; }

echo "== ringbook version"
"$tool" version

echo
if [ -f "$db" ]; then
  echo "== reusing the game world in $world"
else
  echo "== ringbook init"
  rb init
fi

# A fresh world has officials, venues and titles but no fighters yet.
if [ -z "$(rb --tsv fighter list | tail -n +2)" ]; then
  echo
  echo "== ringbook fighter add --from-json data/sample-fighters.json"
  rb fighter add --from-json "$root/data/sample-fighters.json"
fi

echo
echo "== ringbook rankings --group 1 --division 17   (by titles, then performance points)"
rb rankings --group 1 --division 17
echo
echo "== ringbook rankings --group 1 --division 17 --by performance"
rb rankings --group 1 --division 17 --by performance

# The two best-rated heavyweights of the group.
mapfile -t ids < <(rb --tsv fighter list --group 1 --division 17 | tail -n +2 |
  sort -t $'\t' -k5,5nr | cut -f1 | head -n 2)
if [ "${#ids[@]}" -eq 2 ]; then
  echo
  echo "== ringbook preview ${ids[0]} ${ids[1]} --seed 2024"
  rb preview "${ids[0]}" "${ids[1]}" --seed 2024
  echo
  echo "== ringbook card new build/world/main-event.rbc --bout 1:${ids[0]},${ids[1]} ..."
  rb card new "$world/main-event.rbc" --force --name "Main Event" --date 2025-06-14 \
    --location 1 --bout "1:${ids[0]},${ids[1]}" >/dev/null
  rb card show "$world/main-event.rbc"
fi
