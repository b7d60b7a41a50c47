#!/usr/bin/env bash
# Walks along the user guide in a real window, with keys and mouse, on a screen of its own (Xvfb), from the start
# page to a repaired failed set: walk_guide.sh [BUILD_DIR]
# Every step checks what came of it; the first that fails ends the walk with exit code 1. Pictures of each, and
# a log, are left in build/walk.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
"$top/scripts/install_packages.sh" run walk
[ $# -gt 0 ] || "$top/scripts/build.sh" release
build=$(cd "${1:-$top/build/release}" && pwd)

pictures="$top/build/walk"
rm -rf "$pictures"
mkdir -p "$pictures"
place=$(mktemp -d)
started=()
clean() {
    for process in "${started[@]}"; do
        kill "$process" 2>/dev/null || true
    done
    rm -rf "$place"
}
trap clean EXIT

{ read -r TVS_DRIVES; read -r program; read -r _; } < <("$top/scripts/install_example.sh" "$place" "$build")
export TVS_DRIVES XDG_CONFIG_HOME="$place/config" XDG_DATA_HOME="$place/data" XDG_RUNTIME_DIR="$place"
chmod 700 "$place"

# The server takes a display that is free, and tells which.
exec {display}< <(exec Xvfb -displayfd 1 -screen 0 1280x900x24 -nolisten tcp 2>"$pictures/server.txt")
started+=($!)
read -r -t 20 -u "$display" number || { echo "Xvfb does not start; see $pictures/server.txt" >&2; exit 1; }
export DISPLAY=":$number"
openbox --sm-disable >/dev/null 2>&1 &
started+=($!)

export PYTHONDONTWRITEBYTECODE=1 QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
unset WAYLAND_DISPLAY
# What the services of the session say is no business of whoever watches the walk.
dbus-run-session -- /usr/bin/python3 "$top/scripts/walk_guide.py" "$program" "$place" "$pictures" \
    2>"$pictures/errors.txt" | grep --line-buffered -v '^SpiRegistry' || {
    grep -v '^dbus-daemon' "$pictures/errors.txt" | tail -n 3 >&2
    exit 1
}
echo "$(find "$pictures" -name '*.png' | wc -l) pictures in $pictures"
