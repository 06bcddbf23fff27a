#!/usr/bin/env bash
# Measures how well every text stands out from its ground and writes docs/contrast.md.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
scripts/build.sh release
cmake --build --preset release --target contrast
build/release/tools/contrast/contrast >docs/contrast.md
