#!/usr/bin/env bash
# Builds the benchmarks, makes their inputs and runs them: benchmark.sh [NAME...], without names all of them.
# Libraries that do the same elsewhere are measured beside ours in the same run where they are installed.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)

"$top/scripts/install_packages.sh" run package test benchmark
cd "$top"
scripts/build.sh benchmarks
export BENCHMARK_INPUTS="$top/build/benchmark_inputs"
[ "$BENCHMARK_INPUTS" -nt benchmarks/make_inputs.py ] || python3 benchmarks/make_inputs.py "$BENCHMARK_INPUTS"

[ $# -gt 0 ] || set -- $(cd build/benchmarks/bin && ls ./*_benchmark)
for name in "$@"; do
    "build/benchmarks/bin/$(basename "$name")"
done
