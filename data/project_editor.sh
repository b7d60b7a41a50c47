#!/bin/sh
# Starts the project editor by the file whose name the suite's programs know it by. Its place tells it where its
# translations and its guide lie.
exec "$(dirname "$(readlink -f "$0")")/../lib/project_editor/project_editor.exe" "$@"
