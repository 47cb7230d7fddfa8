#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Lets every call by which an export changes the disk fail, and kills the program at each of them, for all formats. Takes
# a quarter of an hour; ctest runs a sample of it.
#   tests/faults/run.sh [ARGUMENT]...     such as "failures:tab" for one of the tests
#   KP_FAULT_FORMATS=geotiff,cog build/dev/bin/tst_faults   the other fault tests for some formats
#   tests/faults/run.sh --table           writes the table of docs/reliability.md by all fault tests
set -euo pipefail
cd "$(dirname "$0")/../.."
[ -f build/dev/build.ninja ] || cmake --preset dev --log-level=WARNING
cmake --build --preset dev --target tst_everycall tst_faults -- --quiet
export KP_FAULT_ALL=1 QTEST_FUNCTION_TIMEOUT=3600000 QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
if [ "${1:-}" = --table ]; then
    export KP_WRITE_TABLE=1
    build/dev/bin/tst_faults
    shift
fi
exec build/dev/bin/tst_everycall "$@"
