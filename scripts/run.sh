#!/usr/bin/env bash
# Installs what is missing, builds the program and runs it: run.sh [PROJECT_FILE [PROJECT_TYPE]]
# Without a file it opens the project of the example suite, which it installs for the user first.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)

"$top/scripts/install_packages.sh" run
(cd "$top" && cmake --preset release >/dev/null && cmake --build --preset release -- --quiet)
[ $# -eq 0 ] || exec "$top/build/release/bin/project_editor.exe" "$@"

place=${XDG_DATA_HOME:-$HOME/.local/share}/tvs_example
installed=$("$top/scripts/install_example.sh" "$place")
{ read -r drives; read -r program; read -r project; } <<<"$installed"
echo "The example suite is in $place (delete that folder to have it anew)"
if [ -n "${TVS_DRIVES:-}" ]; then
    echo "TVS_DRIVES is set: names on C: mean that drive, not the example's" >&2
fi
export TVS_DRIVES=${TVS_DRIVES:-$drives}
exec "$program" "$project"
