#!/usr/bin/env bash
# Installs what is missing of the Debian packages of packages.txt.
# install_packages.sh run         what building and running the program needs
# install_packages.sh run package test    the same, and what the package, the tests and the checks need
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)

missing=()
for use in "$@"; do
    while read -r package; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done < <(awk -v use="$use" '$1 == use { print $2 }' "$here/packages.txt")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "This needs root or sudo. As root: apt-get install --no-install-recommends ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
