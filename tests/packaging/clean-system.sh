#!/usr/bin/env bash
# The package on a clean system: installs it there, compares it with the program as it was built, and
# removes it again. Called by scripts/test-package.sh as the first process of new namespaces:
# clean-system.sh FOLDER PACKAGE BUILT-PROGRAM MIRROR
set -euo pipefail

folder="$1" package="$2" mirror="$4"
here="$(dirname "$(readlink -f "$0")")"
root="$folder/root"
fail() {
    echo "FAILED: $*" >&2
    exit 1
}
inside() {
    chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive "$@"
}
install() {
    inside apt-get install -y -qq --no-install-recommends "$@" >"$folder/apt.log" 2>&1 ||
        { cat "$folder/apt.log"; fail "apt-get install $*"; }
}
# All that is on the system but what package managers keep for themselves.
files() {
    find "$root" -xdev \( -path "$root/var/lib/dpkg" -o -path "$root/var/lib/apt" \
        -o -path "$root/var/cache" -o -path "$root/var/log" -o -path "$root/home" \
        -o -path "$root/tmp" \) -prune -o -printf '%P\n' | LC_ALL=C sort
}

# ---- a clean system, in memory ----

mkdir -p -m 1777 /tmp/.X11-unix
mount -t tmpfs -o mode=1777 tmpfs /tmp/.X11-unix  # no other's displays
mkdir -p "$root"
mount -t tmpfs -o mode=755 tmpfs "$root"
tar -C "$root" -xf "$folder/base.tar"
mount -t proc proc "$root/proc"
mkdir -p "$root/dev/pts" "$root/dev/shm" "$root/tmp/.X11-unix"
mount -t devpts -o newinstance,ptmxmode=666 devpts "$root/dev/pts"
mount -t tmpfs -o mode=1777 tmpfs "$root/dev/shm"
chmod 1777 "$root/tmp/.X11-unix"
mount --bind "$folder/archives" "$root/var/cache/apt/archives"
printf 'deb %s %s main\n' "$mirror" bookworm "$mirror" bookworm-updates \
    "${mirror%/debian}/debian-security" bookworm-security >"$root/etc/apt/sources.list"
printf '#!/bin/sh\nexit 101\n' >"$root/usr/sbin/policy-rc.d"  # no services
chmod +x "$root/usr/sbin/policy-rc.d"
cp /etc/resolv.conf "$root/etc/resolv.conf"
cp "$package" "$root/tmp/noonward.deb"

# ---- installed ----

inside apt-get update -qq
install /tmp/noonward.deb
echo "installed: $(du -k "$package" | cut -f 1) KB, with $(inside dpkg-query -W | wc -l) packages"
for tool in cc gcc g++ clang cmake make ninja ld qmake6 pkg-config; do
    [[ -z "$(inside which "$tool" || true)" ]] || fail "a build tool is installed: $tool"
done
developed=$(inside dpkg-query -W -f '${Package}\n' | grep -e '-dev$' || true)
[[ -z "$developed" ]] || fail "packages for building are installed: $developed"
missing=$(inside ldd /usr/bin/noonward | grep 'not found' || true)
[[ -z "$missing" ]] || fail "libraries: $missing"
install xvfb
inside useradd --create-home --shell /bin/bash ann

# ---- used, without any network ----

unshare --net "$here/clean-system-use.sh" "$folder" "$3"

# ---- removed ----

files >"$folder/installed.txt"
inside dpkg-query -L noonward | sed 's|^/||' | LC_ALL=C sort >"$folder/of-package.txt"
kept=$(find "$root/home/ann" -type f -exec sha256sum {} + | LC_ALL=C sort)
[[ "$kept" == *Noonward/places.json* ]] || fail "the user has no places"
inside apt-get purge -y -qq noonward >"$folder/apt.log" 2>&1 || fail "apt-get purge"
files >"$folder/left.txt"
# What went is of the package, and nothing of it stays but folders that others share.
strange=$(LC_ALL=C comm -3 "$folder/installed.txt" "$folder/left.txt" |
    LC_ALL=C comm -23 - "$folder/of-package.txt")
[[ -z "$strange" ]] || fail "removing changed: $strange"
left=$(grep -i noonward "$folder/left.txt" || true)
[[ -z "$left" ]] || fail "left behind: $left"
[[ "$(find "$root/home/ann" -type f -exec sha256sum {} + | LC_ALL=C sort)" == "$kept" ]] ||
    fail "removing touched the user's data"
echo "removed: nothing is left but the user's data"
