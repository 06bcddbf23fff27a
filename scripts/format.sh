#!/usr/bin/env bash
# Formats our sources in place; with --check only tells which are not formatted.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
mapfile -t sources < <(find src tests bench -name '*.cpp' -o -name '*.h' | sort)
if [[ "${1:-}" == --check ]]; then
    clang-format --dry-run --Werror "${sources[@]}"
else
    clang-format -i "${sources[@]}"
fi
