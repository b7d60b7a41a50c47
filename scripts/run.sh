#!/usr/bin/env bash
# Installs what is missing, builds the program and runs it: run.sh [PROJECT_FILE [PROJECT_TYPE]]
# Without a file it opens the project of the example suite, which it installs for the user first.
# Where there is no display, the program is shown on Qt's offscreen platform: it leaves a picture of each page in
# build/pictures and, without a file, works on the example first.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)

"$top/scripts/install_packages.sh" run
"$top/scripts/build.sh" release
bin="$top/build/release/bin"

has_display() {
    [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]
}
# show pages|work PROGRAM PROJECT [TYPE]
show_without_display() {
    echo "There is no display: the program is shown by pictures of its pages, in build/pictures"
    export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-${TMPDIR:-/tmp}} QT_LOGGING_RULES="*.warning=false"
    rm -rf "$top/build/pictures"
    exec "$bin/journey" "$1" "$top/build/pictures" "${@:2}"
}

if [ $# -gt 0 ]; then
    has_display || show_without_display pages "$bin/project_editor.exe" "$@"
    exec "$bin/project_editor.exe" "$@"
fi

place=${XDG_DATA_HOME:-$HOME/.local/share}/tvs_example
installed=$("$top/scripts/install_example.sh" "$place")
{ read -r drives; read -r program; read -r project; } <<<"$installed"
echo "The example suite is in $place (delete that folder to have it anew)"
if [ -n "${TVS_DRIVES:-}" ]; then
    echo "TVS_DRIVES is set: names on C: mean that drive, not the example's" >&2
fi
export TVS_DRIVES=${TVS_DRIVES:-$drives}
has_display || show_without_display work "$program" "$project"
exec "$program" "$project"
