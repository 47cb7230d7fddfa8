#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the packages of tools/packages.txt that are missing. Says nothing when none is.
set -euo pipefail
list=$(grep -v '^#' "$(dirname "$0")/packages.txt")
missing=()
if command -v dpkg-query >/dev/null; then
    for package in $list; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
else
    echo "setup: this is not Debian. Install what corresponds to: $(echo $list)" >&2
    exit 0
fi
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "setup: as root, run: apt-get install ${missing[*]}" >&2; exit 1; }
    as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
export DEBIAN_FRONTEND=noninteractive
if ! { "${as_root[@]}" apt-get update -qq && "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
    tail -n 5 "$log" >&2
    echo "setup: could not install (no network?). These packages are needed: ${missing[*]}" >&2
    exit 1
fi
