#!/usr/bin/env bash
# Builds the Debian package and tries it where nothing of its making is: on a clean Debian 12 with
# the package, what that depends on and an X server. Needs root for the clean system, some 2 GB of
# memory, and the network. Pictures of what was seen are left in build/package-test/pictures/.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
((EUID == 0)) || exec sudo --preserve-env=CMAKE_CXX_COMPILER_LAUNCHER "$0" "$@"
folder="$PWD/build/package-test"
mirror="${DEBIAN_MIRROR:-http://deb.debian.org/debian}"

package=$(scripts/package.sh | tail -n 1)
# The package is not handed in to Debian, so no request of theirs is closed by it.
lintian --allow-root --fail-on error,warning --suppress-tags initial-upload-closes-no-bugs "$package"

# Made once: delete it to begin with Debian's newest.
mkdir -p "$folder/archives/partial" "$folder/pictures"
if [[ ! -e "$folder/base.tar" ]]; then
    rm -rf "$folder/base"
    debootstrap --variant=minbase bookworm "$folder/base" "$mirror"
    tar -C "$folder/base" --one-file-system -cf "$folder/base.tar.partial" .
    mv "$folder/base.tar.partial" "$folder/base.tar"
    rm -rf "$folder/base"
fi

# In namespaces of its own, so that no mount, process or socket outlives the test however it ends.
unshare --mount-proc --pid --fork --kill-child --propagation private \
    tests/packaging/clean-system.sh "$folder" "$package" "$PWD/build/package/noonward" "$mirror"
