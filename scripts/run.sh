#!/usr/bin/env bash
# Installs what is missing, builds the program and runs it: run.sh [PROJECT_FILE [PROJECT_TYPE]]
# Without a file it opens the project of the example suite, which it installs for the user first.
# Where there is no display, the program is shown on Qt's offscreen platform: it leaves a picture of each page in
# build/pictures and, without a file, works on the example first. A line tells what came of each step; the whole
# of it is in build/pictures/log.txt.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)

"$top/scripts/install_packages.sh" run
"$top/scripts/build.sh" release
bin="$top/build/release/bin"
echo "Built in $bin: project_editor.exe, tvs_project, and suite_stand_in for the suite's other programs"

has_display() {
    [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]
}
# Of the log of a journey: a line for each step, with what came of it, and whatever could not be done.
summarise() {
    awk -v width=118 '
        function tell() {
            if (step != "") print substr("  " step (result == "" ? "" : ": " result), 1, width)
            step = result = ""
        }
        /^== / { tell(); step = substr($0, 4); next }
        /^  came of it: no |^  (there is no line|.* cannot be pressed)/ { print substr("!" $0, 1, width) }
        /^  (came of it|to be run): / { sub(/^  [a-z ]*: /, ""); sub(/C:\\Simulation\\Projects\\[^\\]*\\/, ""); result = $0 }
        END { tell() }'
}
# show pages|work PROGRAM PROJECT [TYPE]
show_without_display() {
    local pictures="$top/build/pictures" result=0
    echo "There is no display: the program is shown by pictures of its pages"
    export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-${TMPDIR:-/tmp}} QT_LOGGING_RULES="*.warning=false"
    rm -rf "$pictures"
    mkdir -p "$pictures"
    "$bin/journey" "$1" "$pictures" "${@:2}" 2>&1 | tee "$pictures/log.txt" | summarise || result=$?
    echo "$(find "$pictures" -name '*.png' | wc -l) pictures in $pictures; the whole log: log.txt there"
    exit "$result"
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
