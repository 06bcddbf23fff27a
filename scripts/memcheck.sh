#!/usr/bin/env bash
# Treats the program badly for a while under valgrind: scripts/memcheck.sh [minutes] [seed]. Fails
# when it reads what it may not, uses what was never set, or has lost memory when it ends.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
scripts/setup.sh scripts/packages-checking.txt >&2
scripts/build.sh release >&2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# What valgrind has to say goes where the program's own complaints go, and none are allowed there.
cat >"$folder/noonward" <<END
#!/bin/sh
exec valgrind --quiet --leak-check=full --errors-for-leak-kinds=definite --show-leak-kinds=definite \\
    --num-callers=24 --suppressions="$PWD/tests/support/valgrind.supp" "$PWD/build/release/noonward" "\$@"
END
chmod +x "$folder/noonward"
seed="${2:-$RANDOM}"
echo "seed $seed"
build/release/tools/soak/soak "${1:-10}" "$seed" "$folder/noonward"
