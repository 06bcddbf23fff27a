#!/usr/bin/env bash
# Treats the built program badly for a while, on an X server of its own, and prints the memory it
# keeps: scripts/soak.sh [minutes] [seed]. Fails when it dies, hangs or complains, or when it keeps
# over 2 MiB more in the last third of its longest life than in the one before.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
scripts/build.sh release >&2
seed="${2:-$RANDOM}"
echo "seed $seed"
build/release/tools/soak/soak "${1:-60}" "$seed" | tee build/release/soak.log
awk '
    function mean(from, to, sum, i) {
        for (i = from + 1; i <= to; ++i) sum += kept[longest, i]
        return sum / (to - from)
    }
    # A program that was quit and started anew begins anew: the longest stretch tells most.
    /^minute/ { kept[$6, ++minutes[$6]] = $7; if (minutes[$6] > minutes[longest]) longest = $6 }
    END {
        n = minutes[longest]
        if (n < 6) { print "too short to say whether memory grows"; exit }
        third = int(n / 3)
        grown = mean(n - third, n) - mean(n - 2 * third, n - third)
        printf "%+d KiB from the second third of %d minutes to the last\n", grown, n
        exit grown > 2048
    }' build/release/soak.log
