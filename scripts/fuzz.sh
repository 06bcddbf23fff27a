#!/usr/bin/env bash
# Builds the fuzzers and lets each run for a while, two at a time: scripts/fuzz.sh [seconds] [target…]
# (default: 600, all). What they find is in build/fuzz/findings; fails when that is anything.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
seconds="${1:-600}"
shift || true
targets=("$@")
((${#targets[@]})) || targets=(places holidays calendar time cities gazetteer)
scripts/build.sh fuzz
rm -rf build/fuzz/findings
mkdir -p build/fuzz/findings

# What is found anew is kept beside the build; the corpus in the sources stays as it is.
fuzz() {
    mkdir -p "build/fuzz/corpus/$1"
    nice -n 5 "build/fuzz/fuzz/fuzz_$1" -max_total_time="$2" -timeout=5 -rss_limit_mb=1024 -max_len=16384 \
        -print_final_stats=1 -artifact_prefix="build/fuzz/findings/$1-" \
        "build/fuzz/corpus/$1" "fuzz/corpus/$1" >"build/fuzz/$1.log" 2>&1 || true
    echo "$1: $(sed -nE 's/^stat::number_of_executed_units: *//p' "build/fuzz/$1.log") runs," \
        "$(grep -o 'cov: [0-9]*' "build/fuzz/$1.log" | tail -n 1 || true)"
}
export -f fuzz
printf '%s\n' "${targets[@]}" | xargs -P 2 -I{} bash -c "fuzz {} $seconds"
if [[ -n "$(ls build/fuzz/findings)" ]]; then
    echo "Found:"
    ls build/fuzz/findings
    exit 1
fi
