#!/usr/bin/env bash
# moved_clone_test.sh BUILD_SCRIPT: a build tree that has moved with its clone is made anew, and one that has not
# stays.
set -euo pipefail
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir -p "$folder/first/scripts"
cp "$1" "$folder/first/scripts/build.sh"
cat >"$folder/first/CMakeLists.txt" <<'END'
cmake_minimum_required(VERSION 3.25)
project(stub NONE)
add_custom_command(OUTPUT built COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_SOURCE_DIR}/CMakeLists.txt built)
add_custom_target(all_of_it ALL DEPENDS built)
END
cat >"$folder/first/CMakePresets.json" <<'END'
{"version": 6,
 "configurePresets": [{"name": "dev", "generator": "Ninja", "binaryDir": "${sourceDir}/build/dev"}],
 "buildPresets": [{"name": "dev", "configurePreset": "dev"}]}
END
build() {
    "$folder/$1/scripts/build.sh" dev >"$folder/said" 2>&1 || {
        cat "$folder/said"
        exit 1
    }
    [ -e "$folder/$1/build/dev/built" ]
}
build first
touch "$folder/first/build/dev/kept"
build first
[ -e "$folder/first/build/dev/kept" ]
mv "$folder/first" "$folder/second"
build second
grep -q "it is made anew" "$folder/said"
[ ! -e "$folder/second/build/dev/kept" ]
