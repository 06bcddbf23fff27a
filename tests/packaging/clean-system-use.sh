#!/usr/bin/env bash
# An ordinary user with the installed program, beside the program as it was built on this system:
# clean-system-use.sh FOLDER BUILT-PROGRAM. Called by clean-system.sh.
set -euo pipefail

folder="$1" built="$2"
scripts="$(dirname "$(readlink -f "$0")")"
root="$folder/root"
pictures="$folder/pictures"
examples="$scripts/../../scripts/example"
own="$root/tmp/own"  # what the built program sees as its home
processes=()
trap '((${#processes[@]} == 0)) || kill "${processes[@]}" 2>/dev/null || true' EXIT
fail() {
    echo "FAILED: $*" >&2
    keep_screen || true
    exit 1
}
# What there is to see on the screen there, as a picture.
keep_screen() {
    python3 "$scripts/screen_to_png.py" "$own/screen-there/Xvfb_screen0" "$pictures/screen.png"
}
# until_seen WHAT COMMAND …: waits till the command succeeds.
until_seen() {
    local what="$1"
    shift
    for ((i = 0; i < 600; ++i)); do
        "$@" && return
        sleep 0.1
    done
    fail "waited in vain for $what"
}
variables=(PATH=/usr/bin:/bin LANG=C.UTF-8 TZ=Europe/London)
# NAME=VALUE …, a program and its arguments follow: as the user there, and as the developer here.
there=(chroot --userspec=1000:1000 "$root" /usr/bin/env -i "${variables[@]}" HOME=/home/ann
    DISPLAY=:98 DBUS_SESSION_BUS_ADDRESS=unix:path=/tmp/bus)
here=(env -i "${variables[@]}" HOME="$own" DISPLAY=:97
    DBUS_SESSION_BUS_ADDRESS="unix:path=$own/bus")
mkdir -p "$own/there" "$own/here"
chmod 777 "$own/there"

# ---- pictures: the same, pixel by pixel ----

places() {  # places HOME
    mkdir -p "$1/.local/share/Noonward"
    cp "$examples/six-places.json" "$1/.local/share/Noonward/places.json"
}
# draw FOLDER PROGRAM AS …
draw() {
    "${@:3}" NOONWARD_SNAPSHOT="$1/ribbon.png" NOONWARD_NOTCH="$1/notch.png" \
        NOONWARD_SETTINGS="$1/settings.png" NOONWARD_WELCOME="$1/welcome.png" \
        NOONWARD_TIME="18:00 London" NOONWARD_MINUTES=45 "$2"
}
homes() {
    places "$root/home/ann"
    places "$own"
    chown -R 1000:1000 "$root/home/ann"
}
homes
# They show what time it is: comparable once the built program drew the same before and after.
for ((i = 0; i < 5; ++i)); do
    draw "$own/here" "$built" "${here[@]}"
    cp -r "$own/here" "$own/before"
    draw /tmp/own/there noonward "${there[@]}"
    draw "$own/here" "$built" "${here[@]}"
    diff -r "$own/here" "$own/before" >/dev/null && break
    rm -r "$own/before"
done
[[ -d "$own/before" ]] || fail "the built program draws no picture twice"
cp "$own"/there/*.png "$pictures/"
for picture in ribbon notch settings welcome; do
    cmp "$own/here/$picture.png" "$own/there/$picture.png" || fail "the picture of the $picture"
done
echo "pictures: the installed program draws what the built one draws"

# ---- desktops: one there, one here ----

screen_width=1600 screen_height=900
mkdir "$own/screen" "$own/screen-there"
chmod 777 "$own/screen-there"
screen=("-screen" 0 "${screen_width}x${screen_height}x24" -nolisten tcp -noreset -nocursor)
"${there[@]}" Xvfb :98 "${screen[@]}" -fbdir /tmp/own/screen-there >/dev/null 2>&1 &
processes+=($!)
Xvfb :97 "${screen[@]}" -nolock -fbdir "$own/screen" >/dev/null 2>&1 &
processes+=($!)
"${there[@]}" dbus-daemon --session --nofork --address=unix:path=/tmp/bus >/dev/null 2>&1 &
processes+=($!)
dbus-daemon --session --nofork --address="unix:path=$own/bus" >/dev/null 2>&1 &
processes+=($!)
# The picture's bytes, without the header that names the machine.
pixels() {
    tail -c $((screen_width * screen_height * 4)) "$own/$1/Xvfb_screen0"
}
is_running() { [[ -S "$1" ]]; }
until_seen "a display there" is_running "$root/tmp/.X11-unix/X98"
until_seen "a display here" is_running /tmp/.X11-unix/X97
until_seen "a bus there" is_running "$root/tmp/bus"
until_seen "a bus here" is_running "$own/bus"
has_copy() {
    "$@" dbus-send --session --print-reply --dest=org.freedesktop.DBus / \
        org.freedesktop.DBus.NameHasOwner string:com.ostrelmead.noonward 2>/dev/null |
        grep -q 'boolean true'
}
is_empty() { cmp -s <(pixels "$1") "$own/empty"; }
is_covered() { ! is_empty "$1"; }
is_seen_on_both() { is_covered screen && cmp -s <(pixels screen) <(pixels screen-there); }
head -c $((screen_width * screen_height * 4)) /dev/zero >"$own/empty"
until_seen "an empty screen" is_empty screen-there

# ---- the first start of a new user ----

rm -rf "$root/home/ann/.local" "$own/.local"
"${there[@]}" noonward >"$own/output" 2>&1 &
program=$!
"${here[@]}" "$built" >/dev/null 2>&1 &
built_program=$!
until_seen "the welcome" is_seen_on_both
grep -qx 'Exec=/usr/bin/noonward' "$root/home/ann/.config/autostart/noonward.desktop" ||
    fail "the first start does not switch on what opens at login"
kill "$program" "$built_program"
wait "$program" || fail "the new user's copy ended with $?"
wait "$built_program"
until_seen "the welcome gone" is_empty screen-there
echo "first start: the welcome is seen, and Noonward opens at login"

# ---- the ribbon, by a second start ----

homes
"${there[@]}" noonward >>"$own/output" 2>&1 &
program=$!
"${here[@]}" "$built" >/dev/null 2>&1 &
processes+=($!)
until_seen "the copy there" has_copy "${there[@]}"
until_seen "the copy here" has_copy "${here[@]}"
sleep 2  # for what should not come
is_empty screen-there || fail "something is seen at rest"
"${there[@]}" noonward >>"$own/output" 2>&1 || fail "the second start ended with $?"
"${here[@]}" "$built"
# Clocks that move on make them differ for a moment, and so do glides.
until_seen "the ribbon" is_seen_on_both
keep_screen
echo "second start: the ribbon is seen, as the built program shows it"
"${there[@]}" noonward >>"$own/output" 2>&1 || fail "the third start ended with $?"
until_seen "the ribbon closed" is_empty screen-there
kill -0 "$program" || fail "the copy is gone"
kill "$program"
wait "$program" || fail "the copy ended with $?"
[[ ! -s "$own/output" ]] || fail "it says: $(cat "$own/output")"
