#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs every fuzz target for some seconds, from the seeds in corpus/ and the examples.
#   tests/fuzz/run.sh SECONDS [TARGET...]
# Prints the executions of each. What makes one fail is left in build/fuzz/findings.
set -euo pipefail
cd "$(dirname "$0")/../.."
seconds=${1:?how many seconds for each target}
shift
targets=("$@")
[ ${#targets[@]} -gt 0 ] || mapfile -t targets < <(find build/fuzz/fuzz -maxdepth 1 -name "Fuzz*" -perm -u+x -type f -printf "%f\n" | sort)
mkdir -p build/fuzz/findings
export QT_QPA_PLATFORM=offscreen LSAN_OPTIONS=suppressions=tests/lsan.supp:print_suppressions=0
for target in "${targets[@]}"; do
    name=${target#Fuzz}
    name=${name,,}
    corpus=build/fuzz/corpus/$name
    mkdir -p "$corpus"
    log=build/fuzz/$name.log
    # Qt 5.15's JSON parser itself leaks on some malformed documents.
    leaks=1
    case $target in FuzzJob | FuzzLayout | FuzzModel) leaks=0 ;; esac
    if ! ASAN_OPTIONS=detect_odr_violation=0:detect_leaks=$leaks build/fuzz/fuzz/"$target" -max_total_time="$seconds" -max_len=20000 -timeout=20 -detect_leaks=$leaks -rss_limit_mb=4096 -print_final_stats=1 \
        -artifact_prefix=build/fuzz/findings/"$name"- "$corpus" tests/fuzz/corpus/"$name" >"$log" 2>&1; then
        tail -n 40 "$log" >&2
        echo "fuzz: $target failed; the input is in build/fuzz/findings" >&2
        exit 1
    fi
    echo "fuzz: $target: $(sed -n 's/^stat::number_of_executed_units: *//p' "$log") executions"
done
