#!/usr/bin/env bash
# Installs the Debian 12 packages that are missing of those that building and testing need, or of
# another list; says nothing and asks nothing when none is.
set -euo pipefail

packages="${1:-$(dirname "$(readlink -f "$0")")/packages.txt}"
mapfile -t wanted < <(grep -v '^#' "$packages")
installed=$(dpkg-query -W -f '${db:Status-Abbrev}${binary:Package}\n' "${wanted[@]}" 2>/dev/null |
    sed -n 's/^ii *//p' | sed 's/:.*//' || true)

missing=()
for package in "${wanted[@]}"; do
    grep -qxF "$package" <<<"$installed" || missing+=("$package")
done
((${#missing[@]} == 0)) && exit 0

echo "Installing: ${missing[*]}"
as_root=()
if ((EUID != 0)); then
    command -v sudo >/dev/null || { echo "Run this as root, or install sudo." >&2; exit 1; }
    as_root=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
