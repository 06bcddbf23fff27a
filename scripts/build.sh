#!/usr/bin/env bash
# Configures and builds one preset (default: release), installing what is missing first.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
preset="${1:-release}"
scripts/setup.sh
cmake --preset "$preset" --log-level=WARNING
cmake --build --preset "$preset"
