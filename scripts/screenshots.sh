#!/usr/bin/env bash
# Draws every kind of control in its states, and each page of the project form with the windows beside it, into
# build/screenshots, without a display: screenshots.sh [gallery|pages]
#
# The gallery is drawn in a light and a dark theme and for a screen of high resolution; the pages in both themes,
# in a small window and a large one, in four languages. The pages show the example project after a user's work on
# it: many scenarios, a set of runs with failures, comparisons, a run over the map.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
what=${1:-all}

[ -n "${BUILD:-}" ] || "$top/scripts/install_packages.sh" run
cd "$top"
build=${BUILD:-build/release}
[ -n "${BUILD:-}" ] || scripts/build.sh release "gallery journey pictures project_editor suite_stand_in tvs_project"
pictures=$top/build/screenshots
mkdir -p "$pictures"
export QT_LOGGING_RULES="*.warning=false" XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-${TMPDIR:-/tmp}}

# on_screen PIXELS_TO_THE_UNIT COMMAND...
on_screen() {
    local screen
    screen=$(mktemp "$pictures/screen.XXXXXX")
    echo "{\"screens\": [{\"name\": \"wide\", \"x\": 0, \"y\": 0, \"width\": 1920, \"height\": 1080,
        \"logicalDpi\": 96, \"logicalBaseDpi\": 96, \"dpr\": $1}]}" > "$screen"
    QT_QPA_PLATFORM="offscreen:configfile=$screen" "${@:2}"
    rm "$screen"
}

draw_gallery() {
    rm -rf "$pictures/gallery"
    on_screen 1 "$build/bin/gallery" "$pictures/gallery"
    on_screen 2 "$build/bin/gallery" "$pictures/gallery/high_resolution"
}

# Prints what install_example.sh does. The example is one that has been worked on.
make_example() {
    local example=$1 installed project plot
    installed=$(scripts/install_example.sh "$example" "$build")
    project=$(sed -n 3p <<<"$installed")
    "$build/bin/journey" work "$example/journey" "$(sed -n 2p <<<"$installed")" "$project" >"$example/journey.log" 2>&1
    for plot in $(seq -w 1 40); do
        cp "${project%.tvp}/Scenarios/base.tvn" "${project%.tvp}/Scenarios/plot $plot, block $((10#$plot % 4 + 1)).tvn"
    done
    touch "${project%.tvp}/Scenarios/clay soil.tvn"
    echo "$installed"
}

draw_pages() {
    local example=$pictures/example
    rm -rf "$pictures/light" "$pictures/dark" "$example"
    mkdir -p "$example"
    export TVS_DRIVES=$example/dosdevices XDG_CONFIG_HOME=$example/config XDG_DATA_HOME=$example/data
    { read -r _; read -r program; read -r project; } <<<"$(make_example "$example")"
    for theme in light dark; do
        on_screen 1 "$build/bin/pictures" "$theme" "$pictures/$theme/scenarios" "$program" "$project"
        on_screen 1 "$build/bin/pictures" "$theme" "$pictures/$theme/map" "$program" "$project" GIS
    done
    rm -rf "$example"
}

[ "$what" = pages ] || draw_gallery
[ "$what" = gallery ] || draw_pages
find "$pictures" -name '*.png' | wc -l | sed "s|\$| pictures in $pictures|"
