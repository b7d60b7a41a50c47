#!/usr/bin/env bash
# Feeds what reads files and names with damaged input: fuzz.sh [SECONDS [TARGET...]], 30 for each by default.
# FUZZ_PRESET=fuzz_quick does without the sanitizers, for long runs.
# Says so, and does nothing, where clang or its fuzzing run-time is not installed.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
seconds=${1:-30}
preset=${FUZZ_PRESET:-fuzz}
shift || true

# Each target, the most bytes of an input, and the files whose pieces it starts from.
targets='
record      512   tests/data/*.t?? tests/data/*.sim tests/fuzz/scenario_corpus.tvn
dbase       8192  tests/data/*.dbf
project     512   tests/data/*.tvp
scenario    256   tests/data/*.tvn tests/data/*.sim tests/fuzz/scenario_corpus.tvn
value       128   tests/fuzz/value_corpus.txt
translation 4096  examples/translations/*/*.txt
settings    1024  tests/fuzz/settings_corpus.ini
name        256   tests/fuzz/name_corpus.txt
command     256   tests/fuzz/name_corpus.txt
journal     1024  tests/fuzz/journal_corpus/*.txt
'

runtime=$(clang++ -print-file-name=libclang_rt.fuzzer-x86_64.a 2>/dev/null || true)
[ -e "$runtime" ] || runtime=$(clang++ -print-runtime-dir 2>/dev/null || true)/libclang_rt.fuzzer-$(uname -m).a
if [ ! -e "$runtime" ]; then
    echo "fuzz: skipped: clang with its run-time (Debian's clang and libclang-rt-14-dev) is not installed"
    exit 0
fi

# An input makes and drops thousands of small pieces of memory: the allocator keeps them at hand.
export GLIBC_TUNABLES=glibc.malloc.tcache_count=60000

cd "$top"
scripts/build.sh "$preset"
while read -r target longest seeds; do
    [ -n "$target" ] || continue
    [ $# -eq 0 ] || [[ " $* " == *" $target "* ]] || continue
    corpus="build/$preset/corpus_$target"
    mkdir -p "$corpus"
    for seed in $seeds; do
        split -C "$longest" -a 3 "$seed" "$corpus/$(basename "$seed")-"
    done
    echo "fuzz: $target for $seconds seconds"
    log="build/$preset/$target.log"
    if ! "build/$preset/bin/${target}_fuzz" -max_total_time="$seconds" -max_len="$longest" -timeout=10 -verbosity=0 \
        -entropic=0 -print_final_stats=1 -artifact_prefix="build/$preset/" "$corpus" >"$log" 2>&1 </dev/null; then
        tail -40 "$log"
        echo "fuzz: $target failed; the input that it failed on is build/$preset/crash-*"
        exit 1
    fi
    grep -E 'average_exec|new_units' "$log"
done <<<"$targets"
