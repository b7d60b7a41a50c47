#!/usr/bin/env bash
# Installs what is missing, builds everything and runs all tests.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)

"$top/scripts/install_packages.sh" run package test
cd "$top"
scripts/build.sh dev
ctest --preset dev
