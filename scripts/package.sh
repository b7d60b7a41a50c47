#!/usr/bin/env bash
# Installs what is missing, builds what users run and makes the Debian package of it, in build/package.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)

"$top/scripts/install_packages.sh" run package
cd "$top"
scripts/build.sh release
(cd build/release && cpack -B "$top/build/package" >/dev/null)
ls "$top"/build/package/*.deb
