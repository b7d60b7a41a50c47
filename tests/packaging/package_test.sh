#!/usr/bin/env bash
# Makes the Debian package of a build, installs it in a root of its own and starts what it holds:
# package_test.sh BUILD_DIR
set -euo pipefail
build=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "package: $*" >&2; exit 1; }

(cd "$build" && cpack -G DEB -B "$work/package" >"$work/log" 2>&1) || { cat "$work/log"; fail "cpack failed"; }
package=$(echo "$work"/package/*.deb)

root="$work/root"
mkdir -p "$root/var/lib/dpkg/info" "$root/var/lib/dpkg/updates"
touch "$root/var/lib/dpkg/status" "$root/var/lib/dpkg/available"
dpkg --root="$root" --force-depends --force-not-root --log=/dev/null -i "$package" >"$work/log" 2>&1 ||
    { cat "$work/log"; fail "dpkg could not install it"; }
depends=$(dpkg-deb -f "$package" Depends)
[[ $depends == *libqt6widgets6* && $depends == *libcurl4* ]] || fail "it does not say what it needs: $depends"

share="$root/usr/share"
appstreamcli validate --no-net "$share"/metainfo/*.xml || fail "the metadata is not valid"
desktop-file-validate "$share"/applications/*.desktop || fail "the menu entry is not valid"
mkdir -p "$work/data/mime"
cp -R "$share/mime/packages" "$work/data/mime"
update-mime-database "$work/data/mime"
for name in study.tvp base.tvn; do
    grep -q "\*.${name#*.}" "$work/data/mime/globs" || fail "$name has no type"
done
grep -q '<h2' "$root"/usr/lib/project_editor/project_editor/help.html || fail "the guide is missing"
[ "$(find "$root" -name '*.txt' -path '*project_editor/ANSI*' -o -name '*.txt' -path '*project_editor/Unicode*' | wc -l)" -ge 2 ] ||
    fail "the translations are missing"

# The command line, its manual and its completions.
[ "$("$root/usr/bin/tvs_project" --version)" = "tvs_project $(dpkg-deb -f "$package" Version)" ] ||
    fail "the command line does not start"
! ldd "$root/usr/bin/tvs_project" | grep -q libQt || fail "the command line needs Qt"
grep -q 'list PROJECT' "$root"/usr/share/man/man1/tvs_project.1* || fail "the manual is missing"
grep -q '<h2' "$root"/usr/lib/project_editor/project_editor/tvs_project.html || fail "its help page is missing"
bash -n "$root/usr/share/bash-completion/completions/tvs_project" || fail "the completion is no script"

# The editor: it is still there, with a window on the file, when it is ended.
export HOME="$work" XDG_DATA_HOME="$work/data" XDG_CONFIG_HOME="$work/config" QT_QPA_PLATFORM=offscreen
unset TVS_DRIVES
mkdir -p "$work/projects"
cp "$(dirname "$0")/../data/irrigation_study.tvp" "$work/projects/study.tvp"
status=0
timeout 3 "$root/usr/bin/project_editor" "$work/projects/study.tvp" 2>"$work/log" || status=$?
[ "$status" -eq 124 ] || { cat "$work/log"; fail "the editor ended at once, with $status"; }
echo "package: $(basename "$package") installs and starts"
