#!/usr/bin/env bash
# Installs a build into a staging folder and holds what lies there against what users and their
# desktops expect: install-test.sh BUILD-FOLDER VERSION
set -euo pipefail

build="$1" version="$2"
cd "$(dirname "$(readlink -f "$0")")/../.."
staging=$(mktemp -d)
trap 'rm -rf "$staging"' EXIT
root="$staging/usr"
status=0
fail() {
    echo "FAILED: $*"
    status=1
}
# same WHAT EXPECTED FOUND
same() {
    [[ "$2" == "$3" ]] || fail "$1:"$'\n'"$(diff <(echo "$2") <(echo "$3") || true)"
}
# silent COMMAND …: succeeds, and has nothing to say
silent() {
    local output
    output=$("$@" 2>&1) || fail "$*: status $?"
    [[ -z "$output" ]] || fail "$*: $output"
}

DESTDIR="$staging" cmake --install "$build" --prefix /usr >/dev/null
sizes=(128 16 22 24 256 32 48 512 64)
same "installed files" "$(
    echo bin/noonward
    printf 'share/applications/%s\n' com.ostrelmead.noonward.desktop noonward.desktop
    printf 'share/doc/noonward/%s\n' changelog.Debian.gz changelog.gz copyright
    for size in "${sizes[@]}"; do
        echo "share/icons/hicolor/${size}x$size/apps/noonward.png"
    done
    echo share/icons/hicolor/scalable/apps/noonward.svg
    echo share/man/man1/noonward.1.gz
    echo share/metainfo/com.ostrelmead.noonward.metainfo.xml
)" "$(cd "$root" && find . -type f -printf '%P\n' | LC_ALL=C sort)"

entry="$root/share/applications/noonward.desktop"
silent desktop-file-validate "$entry" "$root/share/applications/com.ostrelmead.noonward.desktop"
silent mandoc -T lint -W warning "$root/share/man/man1/noonward.1.gz"
appstreamcli validate-tree --pedantic --no-net "$root" || fail "the AppStream data"

same "the entry's icon" noonward "$(sed -n 's/^Icon=//p' "$entry")"
for size in "${sizes[@]}"; do
    # The two numbers that a PNG's header begins with.
    picture="$root/share/icons/hicolor/${size}x$size/apps/noonward.png"
    same "size of an icon" "$size $size" \
        "$(od -An -tu4 --endian=big -j16 -N8 "$picture" | xargs)"
done

# The histories begin with this version, and the manual's last line states it.
same "version in CHANGELOG.md" "$version" \
    "$(zcat "$root/share/doc/noonward/changelog.gz" | sed -n 's/^## \([0-9.]*\).*/\1/p' | head -n 1)"
same "version in Debian's changelog" "$version-1" \
    "$(zcat "$root/share/doc/noonward/changelog.Debian.gz" | sed -n '1s/.*(\(.*\)).*/\1/p')"
same "version in the AppStream data" "$version" \
    "$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' "$root"/share/metainfo/*.xml | head -n 1)"
mandoc "$root/share/man/man1/noonward.1.gz" | tail -n 1 | grep -qF "Noonward $version" ||
    fail "version in the manual page"

same "variables told in the manual page" \
    "$(grep -oh 'NOONWARD_[A-Z]*' src/app/Demonstration.cpp | sort -u)" \
    "$(zcat "$root/share/man/man1/noonward.1.gz" | grep -oh 'NOONWARD_[A-Z]*' | sort -u)"

# Licences that oblige whoever passes the program on.
for words in "SIL OPEN FONT LICENSE" "without limitation the rights" GeoNames creativecommons.org; do
    grep -qF "$words" "$root/share/doc/noonward/copyright" || fail "copyright lacks: $words"
done

env -i HOME="$staging" NOONWARD_WELCOME="$staging/welcome.png" "$root/bin/noonward" ||
    fail "the installed program: status $?"
[[ $(od -An -c -j1 -N3 "$staging/welcome.png" | tr -d ' ') == PNG ]] || fail "no picture"
exit "$status"
