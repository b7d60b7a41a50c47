#!/usr/bin/env bash
# Draws every kind of control in its states, and some forms, into build/screenshots/*.png, without a display: in
# a light and a dark theme, and for a screen of high resolution.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)

"$top/scripts/install_packages.sh" run
cd "$top"
scripts/build.sh release gallery
pictures=build/screenshots
rm -rf "$pictures"
mkdir -p "$pictures"

# draw FOLDER PIXELS_TO_THE_UNIT
draw() {
    local screen="$pictures/screen.json"
    echo "{\"screens\": [{\"name\": \"wide\", \"x\": 0, \"y\": 0, \"width\": 1920, \"height\": 1080,
        \"logicalDpi\": 96, \"logicalBaseDpi\": 96, \"dpr\": $2}]}" > "$screen"
    QT_LOGGING_RULES="*.warning=false" QT_QPA_PLATFORM="offscreen:configfile=$screen" ${GALLERY:-build/release/bin/gallery} "$1"
    rm "$screen"
}
draw "$pictures" 1
draw "$pictures/high_resolution" 2
ls "$pictures" "$pictures/high_resolution"
