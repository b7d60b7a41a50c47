#!/usr/bin/env bash
# Installs what is missing, builds the program and runs it: run.sh [PROJECT_FILE [PROJECT_TYPE]]
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)

"$top/scripts/install_packages.sh" run
(cd "$top" && cmake --preset release >/dev/null && cmake --build --preset release -- --quiet)
exec "$top/build/release/bin/project_editor.exe" "$@"
