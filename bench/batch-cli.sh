#!/usr/bin/env bash
# Timings of zefra point --batch against single runs of the tool.
#
#   bench/batch-cli.sh [BUILD_DIR]      (default: build)
#
# Uses hyperfine when it is installed, otherwise bash's `time` over repeated
# runs. Prints wall-clock and CPU (user + system) time per run: on a shared
# machine the CPU time is the steadier figure.
set -euo pipefail

here="$(cd "$(dirname "$0")/.." && pwd)"
build="${1:-$here/build}"
zefra="$build/zefra"
weather="$here/data/weather-sample.csv"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

[ -x "$zefra" ] || { echo "no $zefra; build the zefra target first" >&2; exit 1; }

# A million rows: timestamp, tdb, rh, over the chart's usual range.
awk 'BEGIN {
    srand(7); print "timestamp,tdb,rh";
    for (i = 0; i < 1000000; i++)
        printf "2025-%02d-%02dT%02d:00,%.1f,%.3f\n", i % 12 + 1, i % 28 + 1, i % 24, -10 + 50 * rand(), 0.2 + 0.75 * rand();
}' > "$work/million.csv"

measure() {  # name runs command...
    local name="$1" runs="$2"
    shift 2
    if command -v hyperfine > /dev/null; then
        hyperfine --warmup 2 --runs "$runs" --export-json "$work/h.json" "$*" > /dev/null
        python3 -c 'import json,sys; r=json.load(open(sys.argv[1]))["results"][0]; print("%-34s wall %8.1f ms   cpu %8.1f ms" % (sys.argv[2], 1000*r["mean"], 1000*(r["user"]+r["system"])))' "$work/h.json" "$name"
        return
    fi
    "$@" > /dev/null  # warm the file cache
    local TIMEFORMAT='%R %U %S'
    local times
    times=$( { time (for ((i = 0; i < runs; i++)); do "$@" > /dev/null; done) ; } 2>&1 )
    awk -v name="$name" -v runs="$runs" '{ printf "%-34s wall %8.1f ms   cpu %8.1f ms\n", name, 1000*$1/runs, 1000*($2+$3)/runs }' <<< "$times"
}

measure "point (one state)" 20 "$zefra" point --tdb 22 --rh 0.6
measure "point --batch, 8,760 rows" 20 "$zefra" point --batch "$weather"
measure "point --batch --json, 8,760 rows" 10 "$zefra" point --batch "$weather" --json
measure "point --batch, 10^6 rows" 3 "$zefra" point --batch "$work/million.csv"
measure "point --batch --out, 10^6 rows" 3 "$zefra" point --batch "$work/million.csv" --out "$work/out.csv"
measure "primary --weather, 8,760 rows" 5 "$zefra" primary --weather "$weather" --season auto
measure "secondary --weather --skip-bad, 8,760" 5 "$zefra" secondary --weather "$weather" --season auto --skip-bad
measure "primary (one run)" 20 "$zefra" primary
