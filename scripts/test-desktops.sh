#!/usr/bin/env bash
# Runs what the tests tell of a Wayland desktop under each that is known: sway, KWin and GNOME Shell,
# as a Wayland client and by the X server inside. Needs no screen; installs what is missing, which
# for GNOME is much. Prints how each story came out on each. Fails when one does not as the program is
# meant to run there: as an X client on GNOME, as a Wayland client on the others.
set -uo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
scripts/build.sh release || exit
scripts/setup.sh scripts/packages-desktops.txt || exit

# KWin trusts only programs of the user who runs it.
as_user=()
((EUID == 0)) && as_user=(setpriv --reuid=65534 --regid=65534 --clear-groups)

failed=0
for desktop in sway kwin gnome; do
    for x_server in 0 1; do
        [[ $desktop$x_server == gnome0 ]] && continue  # it has no layers: the same as with 1
        log="build/desktops-$desktop-$x_server.log"
        NOONWARD_TEST_DESKTOP=$desktop NOONWARD_TEST_XWAYLAND=$x_server "${as_user[@]}" \
            build/release/tests/live/wayland_tests >"$log" 2>&1
        status=$?
        client=Wayland meant=1
        ((x_server)) && client=X meant=0
        [[ $desktop == gnome ]] && meant=$x_server
        ((meant && status)) && failed=1
        printf '%-6s %-8s' "$desktop" "$client"
        grep -E '^\[ +(OK|FAILED|SKIPPED) +\].* \([0-9]+ ms\)$' "$log" |
            sed -E 's/^\[ +([A-Z]+) +\] WaylandStory\.([A-Za-z]+).*/ \1:\2/' | tr -d '\n'
        echo
    done
done
exit $failed
