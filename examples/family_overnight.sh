#!/usr/bin/env bash
# A night's work on a project: makes the family of scenarios that its parameter files combine to, checks it, runs
# it, runs once more what failed, and prints a table of what came of each.
#
#     family_overnight.sh PROJECT [JOBS]
set -euo pipefail
project=$1
jobs=${2:-$(nproc)}

tvs_project generate "$project" >/dev/null
if ! tvs_project check "$project" --generated --all; then
    echo "Nothing was run: mend what is listed above first." >&2
    exit 1
fi

# A run that fails does not end the others, and the exit code tells that there was one.
if ! tvs_project run "$project" --generated --all --jobs "$jobs" >/dev/null; then
    tvs_project run "$project" --generated --failed --jobs "$jobs" >/dev/null || true
fi

tvs_project list "$project" --generated | cut -f 1-3
[ "$(tvs_project list "$project" --generated --state stale,failed,stopped,waiting,running,unknown --json)" = "[]" ]
