#!/usr/bin/env bash
# Builds the program and runs all tests, or those of another preset: scripts/test.sh asan
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
preset="${1:-release}"
scripts/build.sh "$preset"
ctest --preset "$preset"
