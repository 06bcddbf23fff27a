#!/usr/bin/env bash
# Builds and runs every benchmark; prints the budget, what this machine measures beside each line,
# and "over" where more is used. Fails when any is. With a name, only that benchmark: scripts/bench.sh Live
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
scripts/build.sh release >&2

# "what: 0.123 unit (budget 4)" as columns
row() {
    sed -E 's/\x1b\[[0-9;]*m//g' | sed -nE 's/^(.*): ([^ ]+) (.*) \(budget (.*)\)$/\1\t\2\t\3\t\4/p' |
        awk -F'\t' '{ printf "%-42s %10s %10s  %-30s %s\n", $1, $2, $4, $3, ($2 + 0 > $4 + 0) ? "over" : "" }'
}

printf '%-42s %10s %10s\n' "what" "measured" "at most"
status=0
for bench in build/release/bench/*"${1:-}"*Bench; do
    output=$("$bench" 2>/dev/null) || { status=1; echo "failed or over: $(basename "$bench")" >&2; }
    row <<<"$output"
done
exit "$status"
