#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# Configures a preset and builds targets of it, quietly: what was said goes to build/log and is shown only on failure.
#   tools/build.sh PRESET [-DNAME=VALUE ...] [TARGET ...]        no target: everything
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
preset=$1
shift
settings=()
while [[ ${1-} == -D* ]]; do
    settings+=("$1")
    shift
done
targets=()
[[ $# -eq 0 ]] || targets=(--target "$@")

mkdir -p build/log
log=$PWD/build/log/$preset-build.log

if ! { cmake --preset "$preset" "${settings[@]}" && cmake --build --preset "$preset" "${targets[@]}"; } >"$log" 2>&1 </dev/null; then
    grep -n -m 20 -E 'error:|Error|FAILED' "$log" >&2 || true
    tail -n 60 "$log" >&2
    echo "Building preset $preset failed; the whole log is $log" >&2
    exit 1
fi
