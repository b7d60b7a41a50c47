#!/usr/bin/env bash
# Installs the example suite for a user: install_example.sh DEST [BUILD_DIR]
#
# DEST gets "drive_c", which stands for drive C:, and "dosdevices", the drives. What lies in drive_c already is
# left as it is, changed or deleted; without drive_c the example is copied there. The suite's programs become
# links to the stand-in and to the project editor of the build (build/release unless told otherwise); a
# program that a user has put in the place of one stays.
#
# Prints three lines: the folder of the drives, the project editor's file in the suite, the project's file.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
if [ $# -lt 1 ] || [ $# -gt 2 ]; then
    echo "usage: install_example.sh DEST [BUILD_DIR]" >&2
    exit 2
fi
mkdir -p -- "$1"
dest=$(cd -- "$1" && pwd)
bin=$(cd -- "${2:-$top/build/release}/bin" && pwd)

suite="$dest/drive_c/Program Files/TVS_suite"
stand_ins=(
    TVS_suite TVS_explorer Skymill
    Tilverra/{tilverra_5,scenario_editor,output_manager_advanced,GIS_runner}
    Tilverra/carbon_sequestration_{optimizer,viewer}
    Tilverra/{crop_editor,soil_convertor,format_editor,database_editor}
    XEB/{compare,import_wizard,export_wizard}
    XEB/spatial/interpolation/XEB_spatial_interpolator
)

# Copies the example beside its place first, so that an interrupted copy is never taken for it.
copy_example() {
    part=$(mktemp -d "$dest/part.XXXXXX")
    trap 'rm -rf -- "$part"' EXIT
    cp -R "$top/examples/suite/drive_c" "$part/drive_c"
    cp -R "$top/examples/translations/." "$part/drive_c/Program Files/TVS_suite/Tilverra/project_editor/"
    # What the start page offers as an example, should the one in use be deleted.
    cp -R "$top/examples/suite/drive_c/Simulation" "$part/drive_c/Program Files/TVS_suite/Tilverra/project_editor/example"
    chmod -R u+w "$part/drive_c"
    mv "$part/drive_c" "$dest/drive_c"
}

# place TARGET LINK: makes the link where nothing is, and renews one that led to an earlier build.
place() {
    mkdir -p "$(dirname "$2")"
    if [ -L "$2" ]; then
        [ "$(basename "$(readlink "$2")")" != "$(basename "$1")" ] || ln -sfn "$1" "$2"
    elif [ ! -e "$2" ]; then
        ln -s "$1" "$2"
    fi
}

for program in suite_stand_in project_editor.exe tvs_project; do
    if [ ! -x "$bin/$program" ]; then
        echo "install_example.sh: $bin/$program is not there; build it first" >&2
        exit 1
    fi
done
[ -e "$dest/drive_c" ] || copy_example
place ../drive_c "$dest/dosdevices/c:"
place / "$dest/dosdevices/z:"
for program in "${stand_ins[@]}"; do
    place "$bin/suite_stand_in" "$suite/$program.exe"
done
place "$bin/project_editor.exe" "$suite/Tilverra/project_editor.exe"
place "$bin/tvs_project" "$suite/Tilverra/tvs_project"

echo "$dest/dosdevices"
echo "$suite/Tilverra/project_editor.exe"
echo "$dest/drive_c/Simulation/Projects/Irrigation_study.tvp"
