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
mkdir -p "$pictures"

# picture PLACES VARIABLE NAME [VARIABLE=VALUE …]: what VARIABLE draws, from scripts/example/PLACES,
# dark and light. Pictures and places of one's own are left alone.
picture() {
    local data="$PWD/build/example/$1" variable="$2" name="$3"
    mkdir -p "$data/Noonward"
    cp "scripts/example/$1.json" "$data/Noonward/places.json"
    shift 3
    env XDG_DATA_HOME="$data" TZ=Europe/London "$variable=$pictures/$name.png" "$@" "$program"
    env XDG_DATA_HOME="$data" TZ=Europe/London "$variable=$pictures/$name-light.png" \
        NOONWARD_LIGHT=1 "$@" "$program"
}
picture six-places NOONWARD_SNAPSHOT ribbon
picture six-places NOONWARD_SNAPSHOT ribbon-proposal \
    NOONWARD_TIME="15:30 london" NOONWARD_MINUTES=45 NOONWARD_HIDE=Sydney
picture six-places NOONWARD_SNAPSHOT ribbon-weekend NOONWARD_TIME="sat 10am"
picture six-places NOONWARD_SNAPSHOT ribbon-rolling NOONWARD_ROLL=1 NOONWARD_FORMAT=12h
picture six-places NOONWARD_SNAPSHOT ribbon-travelling \
    TZ=Asia/Tokyo NOONWARD_TRAVEL=ask NOONWARD_UPDATE=1.1 NOONWARD_FORMAT=utc
picture four-places NOONWARD_SETTINGS settings
picture four-places NOONWARD_SETTINGS settings-week NOONWARD_EDIT=1
picture four-places NOONWARD_SETTINGS settings-search NOONWARD_QUERY=san
picture six-places NOONWARD_SETTINGS settings-six
picture four-places NOONWARD_WELCOME welcome
picture six-places NOONWARD_NOTCH notch
picture six-places NOONWARD_NOTCH notch-12h NOONWARD_FORMAT=12h NOONWARD_UPDATE=1.1

echo "No display: the pictures are in $pictures"
ls "$pictures"
