#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs clang-tidy with the project's configuration over the sources that differ from a commit; fails on a warning.
#   tools/tidy.sh [BASE]      BASE is HEAD~1 when it is left out
set -euo pipefail
cd "$(dirname "$0")/.."
base=${1:-HEAD~1}
tidy=$(command -v clang-tidy-14 || command -v clang-tidy) || {
    echo "tidy: install clang-tidy-14" >&2
    exit 1
}
[ -f build/dev/compile_commands.json ] || cmake --preset dev --log-level=WARNING
git diff --name-only --diff-filter=d "$base" -- '*.cpp' ':!tests/package' ':!examples' |
    xargs -r -P "$(nproc)" -n 4 "$tidy" -p build/dev --quiet --extra-arg=-Wno-gnu-zero-variadic-macro-arguments --warnings-as-errors='*' 2> >(grep -v 'warnings\? \(generated\|treated\)' >&2)
