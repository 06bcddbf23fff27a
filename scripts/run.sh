#!/usr/bin/env bash
# Builds Noonward and starts it. Without a display it renders pictures of what there is to see into
# build/pictures/ instead, from the example places beside this script.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
scripts/build.sh release
program="$PWD/build/release/noonward"

if [[ -n "${DISPLAY:-}" ]]; then
    exec "$program" "$@"
fi

pictures="$PWD/build/pictures"
data="$PWD/build/example"
mkdir -p "$pictures" "$data/Noonward"
cp scripts/example/places.json "$data/Noonward/places.json"

# picture NAME [VARIABLE=VALUE …]: one picture of the ribbon, dark unless asked otherwise.
picture() {
    local name="$1"
    shift
    env XDG_DATA_HOME="$data" TZ=Europe/London NOONWARD_SNAPSHOT="$pictures/$name.png" "$@" "$program"
}
picture ribbon
picture ribbon-light NOONWARD_LIGHT=1
picture ribbon-proposal NOONWARD_TIME="15:30 london" NOONWARD_MINUTES=45 NOONWARD_HIDE=Sydney
picture ribbon-weekend NOONWARD_TIME="sat 10am" NOONWARD_LIGHT=1
picture ribbon-rolling NOONWARD_ROLL=1 NOONWARD_FORMAT=12h
picture ribbon-travelling TZ=Asia/Tokyo NOONWARD_TRAVEL=ask NOONWARD_UPDATE=1.1 NOONWARD_FORMAT=utc

env XDG_DATA_HOME="$data" TZ=Europe/London NOONWARD_NOTCH="$pictures/notch.png" "$program"

echo "No display: the pictures are in $pictures"
ls "$pictures"
