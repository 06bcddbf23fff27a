#!/usr/bin/env bash
# Builds and runs every benchmark; prints only the lines with a budget and fails when one is missed.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
scripts/build.sh release >&2
status=0
for bench in build/release/bench/*Bench; do
    output=$("$bench" 2>/dev/null) || { status=1; echo "over budget: $(basename "$bench")"; }
    grep budget <<<"$output" || true
done
exit "$status"
