#!/usr/bin/env bash
# Builds the Debian package of the sources as they are; its path is the last line printed.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
scripts/setup.sh scripts/packages-packaging.txt >&2
scripts/build.sh package >&2

# Dated by the last commit, so that equal sources give equal packages.
if [[ -z "${SOURCE_DATE_EPOCH:-}" ]]; then
    SOURCE_DATE_EPOCH=$(git log -1 --format=%ct 2>/dev/null || stat -c %Y CHANGELOG.md)
    export SOURCE_DATE_EPOCH
fi
rm -f build/package/*.deb
(cd build/package && cpack) >&2
readlink -f build/package/*.deb
