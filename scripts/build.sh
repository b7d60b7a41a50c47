#!/usr/bin/env bash
# Configures and builds a preset, and says what it does where there is something to do: build.sh PRESET [TARGET]
# A build tree that was made elsewhere, as in a copied or moved clone, is made anew.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
preset=$1
target=${2:+--target $2}

# On a terminal the build tool goes over one line. Elsewhere a line for each tenth of the way is enough, beside
# what warns or fails.
tell_progress() {
    local shown=-1 line
    while IFS= read -r line; do
        if [[ $line =~ ^\[([0-9]+)/([0-9]+)\]\  ]]; then
            local tenth=$((BASH_REMATCH[1] * 10 / BASH_REMATCH[2]))
            [ "$tenth" -ne "$shown" ] || continue
            shown=$tenth
            echo "  built ${BASH_REMATCH[1]} of ${BASH_REMATCH[2]}"
        else
            printf '%s\n' "$line"
        fi
    done
}

cd "$top"
cache="build/$preset/CMakeCache.txt"
home=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$cache" 2>/dev/null || true)
if [ -n "$home" ] && ! [ "$home" -ef "$top" ]; then
    echo "build/$preset was made for $home: it is made anew" >&2
    rm -rf "build/$preset"
fi
[ -e "$cache" ] || echo "Building the preset $preset, which takes some minutes the first time" >&2
answer=$(cmake --preset "$preset" 2>&1) || {
    echo "$answer" >&2
    exit 1
}
# shellcheck disable=SC2086 # the target is two words or none
if ! cmake --build --preset "$preset" $target -- -n | grep -q '^ninja: no work to do'; then
    if [ -t 2 ]; then
        cmake --build --preset "$preset" $target >&2
    else
        cmake --build --preset "$preset" $target 2>&1 | tell_progress >&2
    fi
fi
