#!/usr/bin/env bash
# Feeds what reads files and names with damaged input: fuzz.sh [SECONDS [TARGET...]], 30 for each by default.
# Says so, and does nothing, where clang or its fuzzing run-time is not installed.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
seconds=${1:-30}
shift || true

# Each target, and the files that it starts from.
targets='
record      tests/data/*.t?? tests/data/*.sim
dbase       tests/data/*.dbf
project     tests/data/*.tvp
scenario    tests/data/*.tvn tests/data/*.sim
value       tests/fuzz/value_corpus.txt
translation examples/translations/*/*.txt
settings    tests/fuzz/settings_corpus.ini
name        tests/fuzz/name_corpus.txt
command     tests/fuzz/name_corpus.txt
'

runtime=$(clang++ -print-file-name=libclang_rt.fuzzer-x86_64.a 2>/dev/null || true)
[ -e "$runtime" ] || runtime=$(clang++ -print-runtime-dir 2>/dev/null || true)/libclang_rt.fuzzer-$(uname -m).a
if [ ! -e "$runtime" ]; then
    echo "fuzz: skipped: clang with its run-time (Debian's clang and libclang-rt-14-dev) is not installed"
    exit 0
fi

cd "$top"
scripts/build.sh fuzz
while read -r target seeds; do
    [ -n "$target" ] || continue
    [ $# -eq 0 ] || [[ " $* " == *" $target "* ]] || continue
    corpus="build/fuzz/corpus_$target"
    mkdir -p "$corpus"
    # shellcheck disable=SC2086
    cp $seeds "$corpus"
    echo "fuzz: $target for $seconds seconds"
    log="build/fuzz/$target.log"
    if ! "build/fuzz/bin/${target}_fuzz" -max_total_time="$seconds" -max_len=8192 -timeout=10 -verbosity=0 \
        -print_final_stats=1 -artifact_prefix=build/fuzz/ "$corpus" >"$log" 2>&1 </dev/null; then
        tail -40 "$log"
        echo "fuzz: $target failed; the input that it failed on is build/fuzz/crash-*"
        exit 1
    fi
    grep -E 'average_exec|new_units' "$log"
done <<<"$targets"
